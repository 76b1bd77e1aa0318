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

// Writes the stem of `word` in lower case to `out`, of the same size, and returns its length.
// Status::refused, and nothing traced, when a byte is not a letter A to Z or a to z.
Result<std::size_t> lancaster(Bytes word, MutableBytes out);

// Whether lancaster() writes the word, the rules it applies and the stem to the standard error
// stream, a line for each word: `meanings  ["s" -> ""]["ing" -> ""] mean`. Off at the start; kept
// from call to call.
void set_lancaster_trace(bool on);

}  // namespace vstring::text
