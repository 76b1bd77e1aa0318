// Substrings and editing, on bytes. Offsets are 0-based; where a result is written, `out` has
// exactly its size and does not overlap an input.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "host/vstring.h"

namespace vstring::core {

// Length of the longest prefix of `text` that holds no byte of `set`.
std::size_t prefix_without(Bytes text, Bytes set);
// Offset just behind the last byte of `text` that is in `set`; 0 when there is none.
std::size_t after_last_of(Bytes text, Bytes set);
// Length of the longest prefix of `text` made of bytes of `set`, or of bytes that pass `test`.
std::size_t prefix_of(Bytes text, Bytes set);
std::size_t prefix_of(Bytes text, CharTest test);

bool is_prefix(Bytes prefix, Bytes text);
bool is_suffix(Bytes suffix, Bytes text);

// Offset of the first or last `c`, or npos.
std::size_t find_first(Bytes text, Byte c);
std::size_t find_last(Bytes text, Byte c);

// The largest and smallest byte. Requires a text of at least one byte.
Byte largest(Bytes text);
Byte smallest(Bytes text);

// Fills `out` with copies of `text`, which is not empty; the size of `out` is a multiple of its.
void repeat(Bytes text, MutableBytes out);
// Rotates a non-empty `text` to the right by |distance|: either sign turns it the same way.
void rotate_right(Bytes text, std::int64_t distance, MutableBytes out);
// Adds `amount` to every byte, modulo 256.
void shift(Bytes text, std::int32_t amount, MutableBytes out);
// Writes the consecutive bytes from `first` on.
void iota(Byte first, MutableBytes out);

}  // namespace vstring::core
