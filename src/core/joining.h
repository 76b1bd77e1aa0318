// Splitting a text into fields and counting the capitals that begin the pieces of a mixed-case
// identifier.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::core {

// Copies `text` to `out`, of the same size, with a zero byte in the place of every byte of
// `separators`, and returns how many those were: the fields are then NUL-terminated, but for the
// last.
std::size_t terminate_fields(Bytes text, Bytes separators, MutableBytes out);

// How many pieces an identifier has: every capital but one at its start begins a new one.
std::size_t count_case_pieces(Bytes identifier);
// Length of its first piece; 0 when it is empty.
std::size_t first_case_piece(Bytes identifier);

}  // namespace vstring::core
