#include "records/fields.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace velmor {
namespace {

void split_at_blanks(std::string_view text, std::size_t most,
                     std::vector<std::string_view>& fields) {
  constexpr std::string_view kBlanks = " \t\n";
  while (fields.size() < most) {
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == text.npos) return;
    text.remove_prefix(begin);
    fields.push_back(text.substr(0, text.find_first_of(kBlanks)));
    text.remove_prefix(fields.back().size());
  }
}

// The byte whose code `rest` begins with, in at most `most` digits, which are removed.
char coded_byte(std::string_view& rest, int base, std::size_t most, const std::string& written) {
  int code = 0;
  const auto end =
      std::from_chars(rest.data(), rest.data() + std::min(rest.size(), most), code, base).ptr;
  if (end == rest.data() || code == 0 || code > 255)
    throw std::invalid_argument("no such byte in the separator " + written);
  rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
  return static_cast<char>(code);
}

}  // namespace

void split_fields(std::string_view text, const std::optional<std::string>& separator,
                  std::size_t most, std::vector<std::string_view>& fields) {
  fields.clear();
  if (!separator) return split_at_blanks(text, most, fields);
  for (std::size_t begin = 0; begin <= text.size() && fields.size() < most;) {
    fields.push_back(text.substr(begin, text.find(*separator, begin) - begin));
    begin += fields.back().size() + separator->size();
  }
}

std::string unescaped_separator(const std::string& written) {
  constexpr std::string_view kLetters = "abfnrtv\\";
  constexpr std::string_view kBytes = "\a\b\f\n\r\t\v\\";
  std::string bytes;
  for (std::string_view rest = written; !rest.empty();) {
    const char c = rest.front();
    rest.remove_prefix(1);
    if (c != '\\') {
      bytes += c;
    } else if (rest.starts_with('x')) {
      rest.remove_prefix(1);
      bytes += coded_byte(rest, 16, 2, written);
    } else if (const std::size_t i = rest.empty() ? rest.npos : kLetters.find(rest.front());
               i != rest.npos) {
      rest.remove_prefix(1);
      bytes += kBytes[i];
    } else {
      bytes += coded_byte(rest, 8, 3, written);
    }
  }
  if (bytes.empty()) throw std::invalid_argument("the separator of fields must not be empty");
  return bytes;
}

}  // namespace velmor
