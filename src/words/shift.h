// From where on one word begins another: what periods, borders and overlaps are about.
#pragma once
#include <cstddef>
#include <optional>

#include "bytes/budget.h"
#include "bytes/bytes.h"

namespace vstring::words {

// How much of a word is looked for by exact search, before the rest is compared.
inline constexpr std::size_t kHead = 32;
// Words from this length on are worth it.
inline constexpr std::size_t kWorthSearching = 256;

// What comparing in vain may cost before a way that takes time and memory in proportion to the
// word's length, whatever the word, is taken instead; short words are never left to that.
Budget patience(std::size_t length);

// The least p >= first from which on all that is left of `s` begins `t`, which is no shorter than
// that; at most |s|. Nothing when patience is at an end: words of many long repetitions (Fibonacci
// words) are left to the border array.
std::optional<std::size_t> find_shift(Bytes s, Bytes t, std::size_t first);

}  // namespace vstring::words
