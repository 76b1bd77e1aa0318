#include "bytes/edit_stripe.h"

namespace vstring {

#ifdef VSTRING_AVX2

namespace {

using Lanes [[gnu::vector_size(kStripeWords * sizeof(std::uint64_t))]] = std::uint64_t;

// What goes down from lane to lane, `first` coming in at the top.
VSTRING_AVX2 Lanes handed_down(Lanes changes, std::uint64_t first) {
  return __builtin_shufflevector(changes, Lanes{first}, 4, 0, 1, 2);
}

}  // namespace

// The step of bytes/edit_column.h in every lane. A lane that has no letter yet is given letter 0
// and the news that the row above stays as it is, which leaves it as it was.
VSTRING_AVX2 void cross_edit_stripe(const std::uint64_t (*equal)[kStripeWords], std::size_t rows,
                                    Bytes letters, EditRun* runs) {
  const std::size_t lane = (rows - 1) / 64;                     // of the last row
  const auto below = static_cast<int>(64 * (lane + 1) - rows);  // bits of that lane
  const std::size_t delay = 2 * lane + 1;
  const Lanes none = {};
  const Lanes top = none + (std::uint64_t{1} << 63);
  Lanes rise = ~none;
  Lanes fall = none;
  Lanes stayed_above = none + 1;
  Lanes fell_above = none;
  Lanes stayed = ~none;
  Lanes fell = none;
  Lanes all_stayed = none;  // of the last 64 letters
  Lanes all_fell = none;
  std::uint64_t last_letters = 0;  // lane w is at the one in byte 2 w + 1
  const Byte* next = letters.data();
  const Byte* const end = next + letters.size();
  const std::size_t count = (letters.size() + 63) / 64;
  for (std::size_t r = 0;; ++r) {
    const EditRun above = r < count ? runs[r] : EditRun{};
    std::uint64_t first_stayed = ~above.rose;
    std::uint64_t first_fell = above.fell;
    const auto go_on = [&](std::size_t steps) VSTRING_AVX2 __attribute__((always_inline)) {
      for (; steps > 0; --steps) {
        last_letters = last_letters << 8 | (next < end ? *next++ : 0);
        const Lanes equal_rows = {equal[last_letters >> 8 & 255][0],
                                  equal[last_letters >> 24 & 255][1],
                                  equal[last_letters >> 40 & 255][2], equal[last_letters >> 56][3]};
        const Lanes vertical = equal_rows | fall;
        const Lanes reached = equal_rows | fell_above;
        const Lanes met = reached & rise;
        const Lanes sum = met + rise;
        // What the lanes above did one step ago is known early enough for the next.
        const Lanes next_stayed = handed_down(stayed >> 63, first_stayed & 1);
        const Lanes next_fell = handed_down(fell >> 63, first_fell & 1);
        stayed = (sum | (rise | reached)) & ~fall;
        fell = met | (rise & ~sum);
        const Lanes stays = stayed << 1 | stayed_above;
        rise = fell << 1 | fell_above | (stays & ~vertical);
        fall = vertical & ~stays;
        all_stayed = all_stayed >> 1 | (stayed << below & top);
        all_fell = all_fell >> 1 | (fell << below & top);
        stayed_above = next_stayed;
        fell_above = next_fell;
        first_stayed >>= 1;
        first_fell >>= 1;
      }
    };
    go_on(delay);
    if (r > 0) runs[r - 1] = {~all_stayed[lane], all_fell[lane]};
    if (r == count) break;
    go_on(64 - delay);
  }
  if (count == 0) return;
  const std::uint64_t inside = ~std::uint64_t{0} >> (64 * count - letters.size());
  runs[count - 1].rose &= inside;
  runs[count - 1].fell &= inside;
}

#else

void cross_edit_stripe(const std::uint64_t (*)[kStripeWords], std::size_t, Bytes, EditRun*) {}

#endif

}  // namespace vstring
