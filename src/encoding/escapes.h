// Escape sequences, as in literals of the host's language and of C.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "encoding/pieces.h"
#include "runtime/status.h"

namespace vstring::encoding {

// How each byte is written in a literal.
extern const Pieces kEscaped;

// Writes to `out`, no shorter than `text`, what stands there with its escape sequences read, and
// returns the length. Status::refused at the first one that is none, which `invalid` then is, or
// whose value is zero; then `invalid` is empty.
Result<std::size_t> unescape(Bytes text, MutableBytes out, Bytes& invalid);

}  // namespace vstring::encoding
