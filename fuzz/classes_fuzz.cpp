// Specifications of character classes beside their definition, and what uses them.
#include <bitset>

#include "input.h"
#include "support/direct.h"

namespace {

using vstring_test::Input;

// The members in the order of their codes; "error: ..." for a range that is reversed.
std::string members_of(const std::string& items) {
  std::bitset<256> members;
  const bool is_complement = items.starts_with('^');
  for (std::size_t i = is_complement ? 1 : 0; i < items.size(); ++i) {
    const bool is_escaped = items[i] == '\\' && i + 1 < items.size();
    if (is_escaped) ++i;
    const auto first = static_cast<unsigned char>(items[i]);
    members.set(first);
    if (is_escaped || i + 2 >= items.size() || items[i + 1] != '-') continue;
    const auto last = static_cast<unsigned char>(items[i += 2]);
    if (last < first) return "error: invalid character class specification";
    for (std::size_t code = first; code <= last; ++code) members.set(code);
  }
  std::string text;
  for (std::size_t code = 1; code < 256; ++code) {
    if (members.test(code) != is_complement) text += static_cast<char>(code);
  }
  return vstring_test::quoted(text);
}

bool is_enclosed(const std::string& list, char open, char close) {
  return list.size() > 1 && list.front() == open && list.back() == close &&
         list[list.size() - 2] != '\\';
}

}  // namespace

void vstring_test::try_input(Input& input) {
  const std::string whole = input.text(40);
  std::string list = whole;
  while (is_enclosed(list, '[', ']')) list = list.substr(1, list.size() - 2);
  const std::string answer = call(vstring_expandCharClass, {whole});
  if (!is_enclosed(list, ':', ':')) expect_same(members_of(list), answer);
}
