#include "words/likeness/jaro.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#include "bytes/common.h"
#include "runtime/memory.h"
#include "words/likeness/stripe.h"

namespace vstring::words {
namespace {

struct Matching {
  std::size_t pairs;
  std::size_t displaced;  // pairs whose letters differ when both sides are taken in order
};

// How far away letters may be matched.
std::size_t window(Bytes s, Bytes t) {
  const std::size_t half = std::max(s.size(), t.size()) / 2;
  return half == 0 ? 0 : half - 1;
}

// With t of at most 64 letters: its places are bits.
Matching match_short(Bytes s, Bytes t) {
  const LetterRows<1> places(t, s);
  const std::size_t w = window(s, t);
  std::uint64_t taken = 0;
  Byte matched[64];
  std::size_t pairs = 0;
  const std::size_t end = std::min(s.size(), t.size() + w);
  for (std::size_t i = 0; i < end; ++i) {
    std::uint64_t free = places[s[i]][0] & ~taken;
    if (i > w) free &= ~std::uint64_t{0} << (i - w);
    if (i + w < 63) free &= (std::uint64_t{2} << (i + w)) - 1;
    if (free == 0) continue;
    taken |= free & -free;
    matched[pairs++] = s[i];
  }
  Matching matching = {pairs, 0};
  for (std::size_t k = 0; taken != 0; taken &= taken - 1, ++k) {
    const auto j = static_cast<std::size_t>(std::countr_zero(taken));
    matching.displaced += matched[k] != t[j] ? 1 : 0;
  }
  return matching;
}

Result<Matching> match_long(Bytes s, Bytes t) {
  Buffer<std::size_t> places;  // in t, letter after letter
  Buffer<Byte> taken;          // whether a letter of t is
  Buffer<Byte> matched;        // letters of s
  if (!places.resize(t.size()) || !taken.resize_zeroed(t.size()) ||
      !matched.resize(std::min(s.size(), t.size()))) {
    return Status::out_of_memory;
  }
  std::array<std::size_t, 257> front = {};
  for (const Byte c : t) ++front[c + 1U];
  for (unsigned c = 0; c < 256; ++c) front[c + 1] += front[c];
  std::array<std::size_t, 256> end;
  std::copy_n(front.begin(), 256, end.begin());
  for (std::size_t j = 0; j < t.size(); ++j) places[end[t[j]]++] = j;

  const std::size_t w = window(s, t);
  std::size_t pairs = 0;
  for (std::size_t i = 0; i < s.size(); ++i) {
    std::size_t& next = front[s[i]];
    while (next < end[s[i]] && places[next] + w < i) ++next;
    if (next == end[s[i]] || places[next] > i + w) continue;
    taken[places[next++]] = 1;
    matched[pairs++] = s[i];
  }
  Matching matching = {pairs, 0};
  for (std::size_t j = 0, k = 0; j < t.size(); ++j) {
    if (taken[j] != 0 && matched[k++] != t[j]) ++matching.displaced;
  }
  return matching;
}

}  // namespace

Result<double> jaro(Bytes s, Bytes t) {
  if (s.empty() || t.empty()) return s.empty() && t.empty() ? 1.0 : 0.0;
  const Result<Matching> matching =
      t.size() <= 64 ? Result<Matching>(match_short(s, t)) : match_long(s, t);
  if (!matching.ok()) return matching.status();
  if (matching->pairs == 0) return 0.0;
  const auto m = static_cast<double>(matching->pairs);
  const std::size_t transpositions = matching->displaced / 2;
  const auto in_order = static_cast<double>(matching->pairs - transpositions);
  return (m / static_cast<double>(s.size()) + m / static_cast<double>(t.size()) + in_order / m) / 3;
}

Result<double> jaro_winkler(Bytes s, Bytes t) {
  const Result<double> likeness = jaro(s, t);
  if (!likeness.ok() || *likeness <= 0.7) return likeness;
  const auto prefix = static_cast<double>(std::min<std::size_t>(common_prefix(s, t), 4));
  return *likeness + prefix * 0.1 * (1 - *likeness);
}

}  // namespace vstring::words
