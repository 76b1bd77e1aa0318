// Message digests of 128 bits: MD5 (R. Rivest, RFC 1321, 1992) and MD4 (R. Rivest, RFC 1320, 1992).
// Fingerprints of texts and interchange with other programs; neither keeps out an adversary.
#pragma once
#include <array>
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::random {

using Digest = std::array<Byte, 16>;

// Whole blocks are read where they lie; only the padded end of the message is copied.
Digest md5(Bytes message);
Digest md4(Bytes message);

// Writes `digest` to `out`, of 32 bytes, in lower-case hexadecimal digits.
void write_hexadecimal(const Digest& digest, MutableBytes out);

}  // namespace vstring::random
