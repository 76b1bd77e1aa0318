// Removal of common prefixes: kilogram -> gram, antichrist -> christ.
#pragma once
#include "bytes/bytes.h"

namespace vstring::text {

// The end of `word` that is left when prefixes are removed one after another, as long as it has
// more than three letters and what follows the prefix is a word with a syllable. Prefixes match
// lower-case letters only; the first one of the table that fits wins, so that a word in uni loses
// un.
Bytes without_prefixes(Bytes word);

}  // namespace vstring::text
