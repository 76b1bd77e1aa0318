// Whether all bytes of a text, or any of them, belong to a character class. Codes above `highest`
// count as belonging to none, whatever the class table says of them.
#pragma once
#include <algorithm>

#include "bytes/byte_scan.h"
#include "bytes/bytes.h"
#include "charclass/class_table.h"

namespace vstring::charclass {

// A long text is scanned for the set of the class, as the table has it now.
inline constexpr std::size_t kLongText = 1024;

inline ByteScan scan_of(Class wanted, Byte highest) {
  ByteSet members;
  for (unsigned c = 0; c <= highest; ++c) {
    if (is(static_cast<Byte>(c), wanted)) members.add(static_cast<Byte>(c));
  }
  return ByteScan(members);
}

inline bool all_in(Bytes text, Class wanted, Byte highest) {
  if (text.size() >= kLongText) {
    return scan_of(wanted, highest).find_other(text, 0) == text.size();
  }
  return std::all_of(text.begin(), text.end(),
                     [=](Byte c) { return c <= highest && is(c, wanted); });
}

inline bool any_in(Bytes text, Class wanted, Byte highest) {
  if (text.size() >= kLongText) return scan_of(wanted, highest).find(text, 0) < text.size();
  return std::any_of(text.begin(), text.end(),
                     [=](Byte c) { return c <= highest && is(c, wanted); });
}

}  // namespace vstring::charclass
