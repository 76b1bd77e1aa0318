// Columns of an alignment, written as in a cigar.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::words {

inline constexpr Byte kDeleted = 'D';    // a letter of s alone
inline constexpr Byte kInserted = 'I';   // a letter of t alone
inline constexpr Byte kEqual = '=';      // equal letters
inline constexpr Byte kDiffering = 'X';  // different letters

// Length of the cigar: each maximal run of equal columns, its length before its letter.
std::size_t cigar_length(Bytes columns);
void write_cigar(Bytes columns, MutableBytes cigar);

// The letters of a word, one for each column; columns of the kind `without`, kInserted for s and
// kDeleted for t, have "-" instead. `row` has the length of `columns`.
void write_row(Bytes columns, Bytes word, Byte without, MutableBytes row);

// The letters of s in columns of the kind kEqual.
std::size_t count_equal(Bytes columns);
void write_equal(Bytes columns, Bytes s, MutableBytes letters);

}  // namespace vstring::words
