// An estimate of the number of syllables of an English word.
//
// A syllable is counted each time a consonant closes a run of vowels; y is a vowel after a
// consonant, and a final y after a consonant counts for itself. A final run of vowels is never
// counted, so that a silent e adds nothing; every word has at least one syllable.
#pragma once
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring::text {

inline constexpr std::size_t kLongestSyllabified = 1024;

inline constexpr std::int32_t kNotAlphabetic = -1;
inline constexpr std::int32_t kTooLong = -2;

// The count, 0 for the empty word; kTooLong or kNotAlphabetic, whichever the word meets first: at
// each position the length is looked at before the letter. Letters are those of the class table;
// any beyond a to z counts as a consonant.
std::int32_t SyllableLength(Bytes word);

}  // namespace vstring::text
