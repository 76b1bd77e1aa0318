// Character classes: one table of 256 masks, exported as `cclbm`, that answers every question about
// classes in the library. Classes are fixed ASCII classes; no locale changes them, but a host may
// write to the table.
#pragma once
#include <cstdint>

#include "bytes/bytes.h"
#include "host/vstring.h"

namespace vstring::charclass {

enum Class : std::uint32_t {
  kLower = 1U << 0,
  kUpper = 1U << 1,
  kAlpha = 1U << 2,
  kDigit = 1U << 3,
  kBinaryDigit = 1U << 4,
  kOctalDigit = 1U << 5,
  kHexDigit = 1U << 6,
  kAlnum = 1U << 7,
  kGraph = 1U << 8,
  kPrint = 1U << 9,
  kPunct = 1U << 10,
  kControl = 1U << 11,
  kVowel = 1U << 12,
  kIdent = 1U << 13,   // inside an identifier
  kIdent1 = 1U << 14,  // at the start of one
  kDna = 1U << 15,
  kSpace = 1U << 16,
  kAscii = 1U << 17,
};

inline bool is(Byte c, Class wanted) { return (cclbm[c] & wanted) != 0; }

}  // namespace vstring::charclass
