#include "core/joining.h"

#include <algorithm>

#include "bytes/byte_set.h"
#include "bytes/scan_stream.h"
#include "charclass/class_table.h"

namespace vstring::core {
namespace {

bool is_capital(Byte c) { return c < 128 && charclass::is(c, charclass::kUpper); }

}  // namespace

std::size_t terminate_fields(Bytes text, Bytes separators, MutableBytes out) {
  constexpr std::size_t kWorthScan = 64;
  const ByteSet set(separators);
  std::size_t count = 0;
  if (text.size() < kWorthScan) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool is_end = set.has(text[i]);
      out[i] = is_end ? Byte{0} : text[i];
      count += is_end ? 1 : 0;
    }
    return count;
  }
  const ByteScan scan(set);
  ScanStream ends(scan, text);
  copy_into(out, text);
  for (std::size_t i = ends.find(0); i < text.size(); i = ends.find(i + 1)) {
    out[i] = 0;
    ++count;
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
