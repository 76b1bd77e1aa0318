#include "core/joining.h"

#include <algorithm>

#include "bytes/byte_set.h"
#include "charclass/class_table.h"

namespace vstring::core {
namespace {

bool is_capital(Byte c) { return c < 128 && charclass::is(c, charclass::kUpper); }

}  // namespace

std::size_t terminate_fields(Bytes text, Bytes separators, MutableBytes out) {
  const ByteSet ends(separators);
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_end = ends.has(text[i]);
    out[i] = is_end ? Byte{0} : text[i];
    count += is_end ? 1 : 0;
  }
  return count;
}

std::size_t count_case_pieces(Bytes identifier) {
  if (identifier.empty()) return 1;
  return 1 + static_cast<std::size_t>(
                 std::count_if(identifier.begin() + 1, identifier.end(), is_capital));
}

std::size_t first_case_piece(Bytes identifier) {
  if (identifier.empty()) return 0;
  const auto next = std::find_if(identifier.begin() + 1, identifier.end(), is_capital);
  return static_cast<std::size_t>(next - identifier.begin());
}

}  // namespace vstring::core
