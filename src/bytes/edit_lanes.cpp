#include "bytes/edit_lanes.h"

#include <cstring>

#include "bytes/cpu.h"

namespace vstring {
namespace {

using Lanes [[gnu::vector_size(kEditLanes * sizeof(std::uint64_t))]] = std::uint64_t;

// The step of bytes/edit_column.h in every lane, the cells over the first row being 0 for good.
// Compiled for each kind of vectors.
[[gnu::always_inline]] inline void go_through(const EditPattern& pattern, const Byte* text,
                                              std::size_t lead, std::size_t words,
                                              std::uint64_t* ends) {
  const auto bottom = static_cast<int>(pattern.rows) - 1;
  const std::size_t stride = 64 * words;
  const Lanes none = {};
  Lanes rise = ~none;
  Lanes fall = none;
  Lanes over = none + (pattern.rows - pattern.k - 1);  // negative where the last row is within k
  Lanes hits = none;
  const auto step = [&](const Byte* at) __attribute__((always_inline)) {
    const Lanes equal = {pattern.equal[at[0]], pattern.equal[at[stride]],
                         pattern.equal[at[2 * stride]], pattern.equal[at[3 * stride]]};
    const Lanes met = equal & rise;
    const Lanes sum = met + rise;
    const Lanes stayed = (sum | (rise | equal)) & ~fall;
    const Lanes fell = met | (rise & ~sum);
    over += (~stayed >> bottom & 1) - (fell >> bottom & 1);
    const Lanes vertical = equal | fall;
    const Lanes stayed_above = stayed << 1 | 1;
    rise = fell << 1 | (stayed_above & ~vertical);
    fall = vertical & ~stayed_above;
    hits = hits >> 1 | (over & std::uint64_t{1} << 63);
  };
  for (std::size_t i = 0; i < lead; ++i) step(text + i);
  text += lead;
  for (std::size_t w = 0; w < words; ++w) {
    for (std::size_t i = 0; i < 64; ++i) step(text++);
    std::memcpy(ends + kEditLanes * w, &hits, sizeof hits);
  }
}

#ifdef VSTRING_AVX2
VSTRING_AVX2 void go_through_in_vectors(const EditPattern& pattern, const Byte* text,
                                        std::size_t lead, std::size_t words, std::uint64_t* ends) {
  go_through(pattern, text, lead, words, ends);
}
#endif

}  // namespace

void find_edit_ends(const EditPattern& pattern, const Byte* text, std::size_t lead,
                    std::size_t words, std::uint64_t* ends) {
#ifdef VSTRING_AVX2
  if (has_avx2()) return go_through_in_vectors(pattern, text, lead, words, ends);
#endif
  go_through(pattern, text, lead, words, ends);
}

}  // namespace vstring
