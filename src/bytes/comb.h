// One step of combing, for many cells of a table side by side (words/likeness/window_lcs.h).
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring {

// In cell i of n, where row letter a[i] meets column letter b[i], the strands across[i] and down[i]
// turn, which is to change places, when the letters are equal or when `across` is greater: then
// they have crossed before.
void comb_cells(const Byte* a, const Byte* b, std::size_t n, std::uint32_t* across,
                std::uint32_t* down);

}  // namespace vstring
