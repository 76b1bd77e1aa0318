// The ends of a text: bytes put there, or taken away.
#pragma once
#include "bytes/bytes.h"

namespace vstring::text {

// Where bytes are put or taken away.
enum class Side { left, right, both };

// Fills `out`, which is no shorter than `text`, with the text and copies of `fill` at the side
// named. Of an odd number of copies on both sides the extra one stands on the right.
void pad(Bytes text, Side side, Byte fill, MutableBytes out);

// `text` without the longest run of white space, or of bytes of `chars`, at the side named.
Bytes trim_space(Bytes text, Side side);
Bytes trim_chars(Bytes text, Bytes chars, Side side);

}  // namespace vstring::text
