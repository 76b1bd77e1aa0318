// Shell-style wildcards: whether a pattern matches a whole text.
//
//   *       any bytes, also none
//   ?       any one byte
//   \x      any one byte, whatever x is; so does a backslash at the end of the pattern
//   [a-z_]  one byte of the set; [^...] one byte outside of it
//   x       the byte x
//
// The first byte of a set is a member, even "]" or "-". A "-" between two bytes makes a range, of
// which a reversed one has its two ends only; a "-" before the closing "]" makes a range upwards
// from the byte before it. Ranges compare signed bytes. A set without a closing "]" matches
// nothing.
//
// Every element but "*" takes exactly one byte. The leftmost place for each segment between two
// stars therefore leaves the most room for the rest, and no other needs to be tried: there is
// nothing to backtrack into. A literal segment is searched by the exact matcher. Of others the
// places worth trying are looked for (search/wildcard/places.h); where there are too many, a
// bit-parallel automaton takes over, one bit per element (R. A. Baeza-Yates, G. H. Gonnet, "A new
// approach to text searching", 1992).
#pragma once
#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::search {

// Time: linear in pattern and text for literal segments and those of up to 64 elements; the text
// times the 64ths of the elements for longer ones. Fails only with Status::out_of_memory.
Result<bool> wildcard_match(Bytes pattern, Bytes text);

}  // namespace vstring::search
