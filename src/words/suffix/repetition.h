// Maximal repetitions, also called runs: factors of at least twice their least period that cannot
// be extended to either side without breaking it. A word of n letters has fewer than n of them
// (H. Bannai et al., "The runs theorem", 2017).
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::words {

struct Repetition {
  std::uint32_t start;  // 0-based
  std::uint32_t end;    // just behind
  std::uint32_t period;
};

// Appends the maximal repetitions of `word`, by their starts, those with one start by their
// periods. M. G. Main, R. J. Lorentz, "An O(n log n) algorithm for finding all repetitions in a
// string", 1984, without recursion; which repetitions are maximal is seen in the whole word.
// O(n log n) time; 12 bytes a letter besides the repetitions. Fails only for want of memory, as
// which words of 4 GiB and more count.
Status maximal_repetitions(Bytes word, HeldArray<Repetition>& repetitions);

}  // namespace vstring::words
