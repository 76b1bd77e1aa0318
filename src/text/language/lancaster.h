// The Lancaster stemmer.
//
// Rules rewrite the ending of a word over and over, until one says stop or none applies; what is
// left must stay pronounceable (two letters after an initial vowel, else three letters with a
// vowel or y among them).
//
// C. D. Paice, "Another stemmer", SIGIR Forum 24(3), 1990, with G. Husk.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::text {

// What is told of a word while it is stemmed: itself, each rule that is applied, the stem.
struct LancasterTrace {
  void (*word)(Bytes word);
  void (*rule)(Bytes ending, Bytes replacement);
  void (*stem)(Bytes stem);
};

// Writes the stem of `word` in lower case to `out`, of the same size, and returns its length.
// Status::refused, and nothing traced, when a byte is not a letter A to Z or a to z. `trace` may be
// null.
Result<std::size_t> lancaster(Bytes word, MutableBytes out, const LancasterTrace* trace);

}  // namespace vstring::text
