// Whether all bytes of a text, or any of them, belong to a character class. Codes above `highest`
// count as belonging to none, whatever the class table says of them.
#pragma once
#include <algorithm>

#include "charclass/class_table.h"
#include "runtime/bytes.h"

namespace vstring::charclass {

inline bool all_in(Bytes text, Class wanted, Byte highest) {
  return std::all_of(text.begin(), text.end(),
                     [=](Byte c) { return c <= highest && is(c, wanted); });
}

inline bool any_in(Bytes text, Class wanted, Byte highest) {
  return std::any_of(text.begin(), text.end(),
                     [=](Byte c) { return c <= highest && is(c, wanted); });
}

}  // namespace vstring::charclass
