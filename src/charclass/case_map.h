// Case maps, capitalisation and translation: one byte in, one byte out. `out` has the size of
// `text` and does not overlap it.
#pragma once
#include <cstdint>

#include "bytes/bytes.h"
#include "charclass/class_table.h"

namespace vstring::charclass {

// The "C" locale's mappings: A to Z and a to z alone change.
constexpr Byte to_lower(Byte c) { return c >= 'A' && c <= 'Z' ? static_cast<Byte>(c + 32) : c; }
constexpr Byte to_upper(Byte c) { return c >= 'a' && c <= 'z' ? static_cast<Byte>(c - 32) : c; }

// The bytes that the class table calls upper case, made lower case; and the mirror image.
inline Byte lowered(Byte c) { return is(c, kUpper) ? to_lower(c) : c; }
inline Byte raised(Byte c) { return is(c, kLower) ? to_upper(c) : c; }

// Whether lowered() changes all of A to Z; no other byte ever changes.
inline bool all_letters_have_case() {
  std::uint32_t classes = kUpper;
  for (int c = 'A'; c <= 'Z'; ++c) classes &= cclbm[c];
  return classes != 0;
}

void lowercase(Bytes text, MutableBytes out);
void uppercase(Bytes text, MutableBytes out);

// Makes the first byte of every word upper case and the rest lower case. A word is a maximal run
// of letters and digits.
void capitalise(Bytes text, MutableBytes out);

// Replaces each byte that occurs in `from`, first at offset k, by to[k]. `to` is at least as long.
void translate(Bytes from, Bytes to, Bytes text, MutableBytes out);

}  // namespace vstring::charclass
