// Soundex: words of like sound share a key of a letter and three digits.
//
// R. C. Russell, US patent 1261167, 1918. Here H and W separate equal codes as the vowels do,
// while bytes that are no letters do not.
#pragma once
#include <array>

#include "bytes/bytes.h"

namespace vstring::text {

using SoundexKey = std::array<Byte, 4>;

// The key of the letters in `text`; Z000 when there are none. Letters are those of the class
// table; any beyond A to Z has the code of a vowel.
SoundexKey soundex(Bytes text);

}  // namespace vstring::text
