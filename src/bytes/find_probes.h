// Looks for a few bytes of a pattern at once, each at its offset: where all of them stand, the
// whole pattern probably does.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/budget.h"
#include "bytes/bytes.h"

namespace vstring {

struct Probes {
  static constexpr std::size_t kMost = 8;

  std::size_t count = 0;  // the first two are looked at ahead of the others
  Byte bytes[kMost];
  std::size_t offsets[kMost];
};

inline constexpr std::size_t kProbeBlock = 64;  // alignments

// To look for the first two probes ahead of the others leaves nothing of most blocks. Where it
// mostly leaves something, all are looked at at once: see `ahead` below.
inline constexpr Budget kLookAhead{64};

// Looks through the alignments [at, end) as far as the first block in which all probes stand
// somewhere: returns where as bits, `at` then being the alignment of bit 0 and none below it
// having been passed over. Returns 0 when there is no such block. Requires a probe or more, and
// `end` + each offset to be within the text. `ahead`, kLookAhead at first, is kept for the next
// call.
std::uint64_t find_probes(Bytes text, std::size_t& at, std::size_t end, const Probes& probes,
                          Budget& ahead);

}  // namespace vstring
