// A plural stemmer for English words that end in s.
//
// boxes -> box, ponies -> pony, shoes -> shoe, cats -> cat. Words in -us and -ss, words of fewer
// than four letters and the exceptions are left alone.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::text {

// Writes the singular of `word` to `out`, of the same size, and returns its length. The rules are
// applied twice, so that analyses gives analy. Case is kept.
std::size_t singular(Bytes word, MutableBytes out);

}  // namespace vstring::text
