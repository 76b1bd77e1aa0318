// How readable an English text is.
//
// W, Z and Y being the numbers of words, sentences and syllables: reading ease, 206.835 - 1.015 W/Z
// - 84.6 Y/W (R. Flesch, "A new readability yardstick", 1948), about 100 for the easiest texts; and
// the school grade, 0.39 W/Z + 11.8 Y/W - 15.59 (J. P. Kincaid et al., 1975).
#pragma once
#include <cstddef>
#include <span>

#include "bytes/bytes.h"

namespace vstring::text {

enum class Measure { ease, grade };

// `words` are those of a text with so many sentences; neither is empty.
double readability(std::span<const Bytes> words, std::size_t sentences, Measure measure);

}  // namespace vstring::text
