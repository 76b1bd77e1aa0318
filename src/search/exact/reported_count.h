// How many occurrences the commands of exact search report.
#pragma once
#include <cstddef>

namespace vstring::search {

// Whether a number of occurrences in one text counts as any at all. The count has always been kept
// in 16 bits, and scripts have come to rely on it: a multiple of 65536 counts as none.
inline bool counts_as_found(std::size_t occurrences) { return (occurrences & 0xffff) != 0; }

}  // namespace vstring::search
