// Metaphone: a key for the sound of an English word, made of letters and of 0 for the sound of th.
//
// L. Philips, "Hanging on the Metaphone", Computer Language 7(12), 1990, in a variant of its own:
// see the table of contexts in the source.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::text {

inline constexpr std::size_t kLongestMetaphoneText = 8191;  // letters; more are left out
inline constexpr std::size_t kLongestMetaphoneKey = 8190;

// Writes the key of the letters in `text` to `out` and returns its length. A key has at most two
// bytes for a letter and kLongestMetaphoneKey bytes; where `out` has less room it is cut there.
// Letters are those of the class table; any beyond A to Z separates, but is not written.
std::size_t metaphone(Bytes text, MutableBytes out);

}  // namespace vstring::text
