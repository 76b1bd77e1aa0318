// Replacing occurrences of a pattern in a text.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "runtime/memory.h"

namespace vstring::search {

// What becomes of a text in which `occurrences` of an m-byte pattern were found. They are replaced
// from left to right, and one that overlaps a replaced one is dropped. The result is cut at E
// bytes, where E is one more than the length it would have if every occurrence, overlapping ones
// included, were replaced: the cut is felt only when some overlap and the replacement is the
// shorter, and scripts depend on it. Keeps in `occurrences` (offsets, increasing) those that are
// replaced. Returns the length of the result, or SIZE_MAX, which no
// allocation grants, when it cannot be represented.
std::size_t plan_substitution(std::size_t text_length, std::size_t m, std::size_t r,
                              HeldArray<std::size_t>& occurrences);

// Writes as much of the text with its occurrences replaced as `out` holds. The occurrences do not
// overlap.
void substitute(Bytes text, std::size_t m, Bytes replacement,
                std::span<const std::size_t> occurrences, MutableBytes out);

}  // namespace vstring::search
