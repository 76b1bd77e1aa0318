// Encodings in which a mark and two hexadecimal digits stand for a byte: percent-encoding
// (T. Berners-Lee et al., RFC 3986, 2005) and quoted-printable (N. Freed, N. Borenstein, RFC 2045,
// 1996).
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "encoding/pieces.h"
#include "runtime/status.h"

namespace vstring::encoding {

// What percent-encoding makes of each byte: letters, digits and - . _ ~ stay.
extern const Pieces kPercent;

// Room that is enough for `text` in quoted-printable form.
std::size_t quoted_room(Bytes text);
// Writes that form, whose lines have at most 76 bytes, to `out` and returns its length.
std::size_t encode_quoted(Bytes text, MutableBytes out);

// Each writes to `out`, no shorter than `text`, and returns the length. Status::refused for a mark
// without digits of either case or, in quoted-printable form, the end of a line behind it.
Result<std::size_t> decode_percent(Bytes text, MutableBytes out);
Result<std::size_t> decode_quoted(Bytes text, MutableBytes out);

}  // namespace vstring::encoding
