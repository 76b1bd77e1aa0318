#include "records/variables.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "language/failure.h"
#include "language/lexer.h"
#include "records/fields.h"

namespace velmor {
namespace {

// The number of the field that `name` stands for; 0 for none.
std::size_t field_number(std::string_view name) {
  std::size_t number = 0;
  if (!name.starts_with('_') || name.starts_with("_0")) return 0;
  const auto [end, error] = std::from_chars(name.data() + 1, name.data() + name.size(), number);
  return error == std::errc() && end == name.data() + name.size() ? number : 0;
}

std::string_view first_word(std::string_view header) {
  if (!header.empty()) header.remove_prefix(1);
  return header.substr(0, header.find_first_of(" \t"));
}

}  // namespace

Variables::Variables(VelmorHeap* heap, const std::vector<std::string>& sources,
                     std::optional<std::string> separator)
    : heap_(heap), separator_(std::move(separator)) {
  for (const std::string& source : sources) {
    Lexer lexer(source);
    for (Token token; (token = lexer.next()).kind != TokenKind::kEnd;)
      if (token.kind == TokenKind::kName) note(token.text);
  }
}

void Variables::note(const std::string& name) {
  HostObject* const slot = name == "_"       ? &text_
                           : name == "_n"    ? &line_
                           : name == "_file" ? &file_
                           : name == "_id"   ? &id_
                                             : nullptr;
  const std::size_t number = field_number(name);
  if (slot != nullptr) *slot = velmor_name(heap_, name.c_str());
  if (number == 0 || std::ranges::count(field_names_, number, &Field::number) > 0) return;
  field_names_.push_back({number, velmor_name(heap_, name.c_str())});
  last_field_ = std::max(last_field_, number);
}

void Variables::assign(HostObject name, std::string_view text) {
  const HostObject object = velmor_string_n(heap_, text.data(), text.size());
  if (object == 0) throw Failure("out of memory");
  velmor_assign(heap_, name, object);
}

void Variables::bind(const Record& record, const std::string& file) {
  if (record.text.find('\0') != record.text.npos || record.header.find('\0') != record.header.npos)
    throw Failure("a string cannot hold a zero byte");
  if (text_ != 0) assign(text_, record.text);
  if (line_ != 0)
    velmor_assign(heap_, line_, velmor_integer(heap_, static_cast<std::int64_t>(record.line)));
  if (file_ != 0) assign(file_, file);
  if (id_ != 0) assign(id_, first_word(record.header));
  if (last_field_ == 0) return;
  split_fields(record.text, separator_, last_field_, fields_);
  for (const auto& [number, name] : field_names_)
    assign(name, number <= fields_.size() ? fields_[number - 1] : std::string_view());
}

}  // namespace velmor
