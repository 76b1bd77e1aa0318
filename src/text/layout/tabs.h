// Tabs and blanks. Tab stops are at the multiples of `tab`, which is positive; the column is 0 at
// the start and after a newline or a carriage return, and every other byte takes one.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring::text {

// The length of `text` once every tab has become blanks up to the next stop, at least one.
std::uint64_t expanded_length(Bytes text, std::size_t tab);
// Writes that text to `out`, which has its length.
void expand_tabs(Bytes text, std::size_t tab, MutableBytes out);

// Writes `text` with the blanks and tabs at the start of each line made as few bytes as they can
// be, tabs first, to `out`, which has room for as many bytes as the text. Returns the length.
std::size_t unexpand_tabs(Bytes text, std::size_t tab, MutableBytes out);

}  // namespace vstring::text
