// Placeholder text: the printers' Latin paragraph, 544 bytes with its final blank.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::text {

inline constexpr std::size_t kIpsumParagraph = 544;

// How many bytes `n` paragraphs, n of 1 or more, take: two newlines follow each, except that a
// single paragraph stands alone and that the very last newline is left out.
std::size_t ipsum_length(std::size_t n);

// Fills `out` with paragraphs and their newlines, cut where `out` ends.
void write_ipsum(MutableBytes out);

}  // namespace vstring::text
