// Digests and checksums of messages. Whole blocks are read where they lie; only the padded end of
// the message is copied.
#pragma once
#include <array>
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::random {

// MD5 (R. Rivest, RFC 1321, 1992) and MD4 (R. Rivest, RFC 1320, 1992). Fingerprints of texts and
// interchange with other programs; neither keeps out an adversary, nor does SHA-1 any more.
std::array<Byte, 16> md5(Bytes message);
std::array<Byte, 16> md4(Bytes message);

// The secure hash standard (FIPS 180-4, 2015).
std::array<Byte, 20> sha1(Bytes message);
std::array<Byte, 32> sha256(Bytes message);
std::array<Byte, 64> sha512(Bytes message);

// The cyclic redundancy check of ISO 3309, which gzip and PNG use: polynomial 0xEDB88320 with the
// lowest bit first, all ones before and after. The highest byte comes first.
std::array<Byte, 4> crc32(Bytes message);

}  // namespace vstring::random
