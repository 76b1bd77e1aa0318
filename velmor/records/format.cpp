#include "records/format.h"

#include <algorithm>

namespace velmor {
namespace {

// A record ends behind the first `kept` bytes of `mark`.
struct End {
  std::string_view mark;
  std::size_t kept;
};

End end_of_record(RecordFormat format) {
  using namespace std::string_view_literals;
  switch (format.kind) {
    case RecordKind::kZero:
      return {"\0"sv, 1};
    case RecordKind::kParagraph:
      return format.drops_carriage_return ? End{"\n\r\n", 3} : End{"\n\n", 2};
    case RecordKind::kFasta:
      return {"\n>", 1};
    default:
      return {"\n", 1};
  }
}

}  // namespace

std::size_t whole_records(RecordFormat format, std::string_view bytes, std::size_t wanted,
                          std::size_t searched) {
  const auto [mark, kept] = end_of_record(format);
  std::size_t at = bytes.npos;
  if (searched < wanted) at = bytes.substr(0, std::max(wanted, mark.size())).rfind(mark);
  if (at == bytes.npos) at = bytes.find(mark, searched - std::min(searched, mark.size() - 1));
  return at == bytes.npos ? 0 : at + kept;
}

}  // namespace velmor
