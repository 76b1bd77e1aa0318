// Palindromes: texts that equal their reversal, byte by byte. The empty text is one.
#pragma once
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::search {

bool is_palindrome(Bytes text);

// The number of centres of a text: its letters and the places between them.
inline std::size_t centre_count(Bytes text) { return text.empty() ? 0 : 2 * text.size() - 1; }

// Fills `lengths`, of one element for each centre, from the left: how long the longest palindrome
// around it is, 0 for none. The text has fewer than 2^32 bytes. Linear (G. Manacher, "A new
// linear-time on-line algorithm for finding the smallest initial palindrome of a string", 1975).
void palindrome_lengths(Bytes text, std::span<std::uint32_t> lengths);

// Where the palindrome of this length around a centre begins.
inline std::size_t palindrome_start(std::size_t centre, std::size_t length) {
  return (centre + 1 - length) / 2;
}

// The leftmost of the longest factors that are palindromes.
Result<Bytes> longest_palindrome(Bytes text);

}  // namespace vstring::search
