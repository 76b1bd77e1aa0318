// Base 64 and base 32: S. Josefsson, "The Base16, Base32, and Base64 Data Encodings", RFC 4648,
// 2006.
//
// Encoding pads, and breaks no lines. Decoding skips line ends (bytes 10 and 13) anywhere and does
// without the padding, but takes no other: what stands for the same bytes is then the same but for
// these. Status::refused for a text that breaks the rules.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::encoding {

std::size_t base64_length(Bytes text);
std::size_t base32_length(Bytes text);

// Each writes to `out`, of that length, and returns it.
std::size_t encode_base64(Bytes text, MutableBytes out);
std::size_t encode_base64url(Bytes text, MutableBytes out);  // - and _ for + and /
std::size_t encode_base32(Bytes text, MutableBytes out);

// Each writes to `out`, no shorter than `text`, and returns the length.
Result<std::size_t> decode_base64(Bytes text, MutableBytes out);
Result<std::size_t> decode_base64url(Bytes text, MutableBytes out);
Result<std::size_t> decode_base32(Bytes text, MutableBytes out);

}  // namespace vstring::encoding
