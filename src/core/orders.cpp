#include "core/orders.h"

#include <algorithm>

#include "bytes/byte_set.h"
#include "bytes/common.h"
#include "bytes/common_case.h"
#include "charclass/case_map.h"
#include "host/vstring.h"
#include "runtime/memory.h"

namespace vstring::core {
namespace {

template <typename T>
int three_way(T a, T b) {
  return a < b ? -1 : a > b ? 1 : 0;
}

int compare_signed(Byte a, Byte b) {
  return three_way(static_cast<signed char>(a), static_cast<signed char>(b));
}

// Order of two letters by their places in the support.
Result<int> compare_in(Bytes support, Byte a, Byte b) {
  const auto place_a = std::find(support.begin(), support.end(), a);
  const auto place_b = std::find(support.begin(), support.end(), b);
  if (place_a == support.end() || place_b == support.end()) return Status::refused;
  return place_a < place_b ? -1 : 1;
}

// Only the codes of ASCII carry weight.
std::int32_t weight_of(Byte c, const Weights& weights) { return c < 128 ? weights[c] : 0; }

std::uint64_t total_weight(Bytes word, const Weights& weights) {
  std::uint64_t total = 0;
  for (const Byte c : word) total += static_cast<std::uint64_t>(weight_of(c, weights));
  return total;
}

// Walks both words; a letter of the smaller code is passed over on its own side. `s` loses as soon
// as passing over uses it up, else the side passed over last decides.
template <typename Iterator>
int recursive_path(Iterator s, Iterator s_end, Iterator t, Iterator t_end) {
  int last_passed = 0;
  while (s != s_end) {
    if (t == t_end) return 1;
    const int order = compare_signed(*s, *t);
    if (order == 0) {
      ++s;
      ++t;
    } else if (order < 0) {
      last_passed = 1;
      if (++s == s_end) return -1;
    } else {
      last_passed = -1;
      ++t;
    }
  }
  return t == t_end ? last_passed : -1;
}

// Length of the longest common prefix after mapping capitals to lower case. The class table tells
// what capitals are: once the texts agree for some bytes, it is asked whether these are A to Z.
std::size_t common_prefix_ignoring_case(Bytes s, Bytes t) {
  constexpr std::size_t kWorthAsking = 8;
  const std::size_t n = std::min(s.size(), t.size());
  for (std::size_t i = 0; i < n; ++i) {
    if (i == kWorthAsking && charclass::all_letters_have_case()) {
      return i + common_prefix_of_letters(s.subspan(i), t.subspan(i));
    }
    if (s[i] != t[i] && charclass::lowered(s[i]) != charclass::lowered(t[i])) return i;
  }
  return n;
}

}  // namespace

Byte first_repeated(Bytes letters) {
  ByteSet met;
  for (const Byte c : letters) {
    if (met.has(c)) return c;
    met.add(c);
  }
  return 0;
}

Result<int> lex(Bytes s, Bytes t, const Support& support) {
  const std::size_t i = common_prefix(s, t);
  if (i == s.size()) return i == t.size() ? 0 : -1;
  if (i == t.size()) return 1;
  return support ? compare_in(*support, s[i], t[i]) : three_way(s[i], t[i]);
}

Result<int> revlex(Bytes s, Bytes t, const Support& support) {
  if (s.empty() || t.empty()) return three_way(!s.empty(), !t.empty());
  std::size_t i = s.size() - 1;
  std::size_t j = t.size() - 1;
  while (s[i] == t[j] && i > 0 && j > 0) {
    --i;
    --j;
  }
  // Without a support, no rule of lengths follows: a word and its proper suffix are equal. With
  // one, the first letters are not compared at all: only whether the walk has reached them.
  if (!support) return compare_signed(s[i], t[j]);
  if (i == 0) return j == 0 ? 0 : -1;
  if (j == 0) return 1;
  return compare_in(*support, s[i], t[j]);
}

Result<int> shortlex(Bytes s, Bytes t, const Support& support) {
  if (s.size() != t.size()) return three_way(s.size(), t.size());
  return lex(s, t, support);
}

Result<int> shortrevlex(Bytes s, Bytes t, const Support& support) {
  if (s.size() != t.size()) return three_way(s.size(), t.size());
  return revlex(s, t, support);
}

int weight_order(Bytes s, Bytes t, const Weights& weights) {
  const int order = three_way(total_weight(s, weights), total_weight(t, weights));
  return order != 0 ? order : *lex(s, t, std::nullopt);
}

int wreath_order(Bytes s, Bytes t, const Weights& weights) {
  const auto [a, b] = std::mismatch(s.rbegin(), s.rend(), t.rbegin(), t.rend());
  if (a == s.rend() || b == t.rend()) return three_way(s.size(), t.size());
  const int order = three_way(weight_of(*a, weights), weight_of(*b, weights));
  return order != 0 ? order : three_way(*a, *b);
}

int recursive_path_from_left(Bytes s, Bytes t) {
  return recursive_path(s.begin(), s.end(), t.begin(), t.end());
}

int recursive_path_from_right(Bytes s, Bytes t) {
  return recursive_path(s.rbegin(), s.rend(), t.rbegin(), t.rend());
}

bool precedes(Bytes s, Bytes t) {
  const std::size_t i = common_prefix(s, t);
  return i == s.size() || (i < t.size() && s[i] < t[i]);
}

bool precedes_ignoring_case(Bytes s, Bytes t) {
  const std::size_t i = common_prefix_ignoring_case(s, t);
  if (i == s.size() || i == t.size()) return i == s.size();
  return charclass::lowered(s[i]) < charclass::lowered(t[i]);
}

namespace {

// Counts letters two at a step, in a table that a second-level cache holds. Returns how many
// letters it has counted: all but a few, or none when memory fails.
[[gnu::noinline]] std::size_t count_in_pairs(Bytes text, std::size_t* counts) {
  Buffer<std::uint32_t> pairs;
  if (!pairs.resize_zeroed(std::size_t{1} << 16)) return 0;
  std::size_t i = 0;
  for (; i + 8 <= text.size(); i += 8) {
    const std::uint64_t letters = load8(text.data() + i);
    for (std::size_t k = 0; k < 8; k += 2) ++pairs[letters >> 8 * k & 0xffff];
  }
  for (std::size_t second = 0; second < 256; ++second) {
    std::size_t behind_any = 0;
    for (std::size_t first = 0; first < 256; ++first) {
      counts[first] += pairs[256 * second + first];
      behind_any += pairs[256 * second + first];
    }
    counts[second] += behind_any;
  }
  return i;
}

}  // namespace

void sort_bytes(Bytes text, MutableBytes out) {
  // Below this, comparing is cheaper than looking at 256 counters.
  constexpr std::size_t kWorthCounting = 64;
  if (text.size() < kWorthCounting) {
    copy_into(out, text);
    std::sort(out.begin(), out.end());
    return;
  }
  // From here on halving the steps is worth a larger table. Its counters are half as wide.
  constexpr std::size_t kWorthPairs = std::size_t{1} << 19;
  constexpr std::size_t kMostPairs = std::size_t{1} << 32;
  // Four tables in turn: runs of one byte do not wait for their own counter.
  std::size_t counts[4][256] = {};
  std::size_t i = 0;
  if (text.size() >= kWorthPairs && text.size() < kMostPairs) i = count_in_pairs(text, counts[0]);
  for (; i + 8 <= text.size(); i += 8) {
    const std::uint64_t letters = load8(text.data() + i);
    for (std::size_t k = 0; k < 8; ++k) ++counts[k % 4][letters >> 8 * k & 0xff];
  }
  for (; i < text.size(); ++i) ++counts[0][text[i]];
  auto next = out.begin();
  for (std::size_t c = 0; c < 256; ++c) {
    const std::size_t n = counts[0][c] + counts[1][c] + counts[2][c] + counts[3][c];
    next = std::fill_n(next, n, static_cast<Byte>(c));
  }
}

}  // namespace vstring::core

void SortString(char* destination, const char* source, int64_t length) {
  using namespace vstring;
  const auto n = static_cast<std::size_t>(length);
  auto* const out = reinterpret_cast<Byte*>(destination);
  core::sort_bytes({reinterpret_cast<const Byte*>(source), n}, {out, n});
  destination[n] = '\0';
}
