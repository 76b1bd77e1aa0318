#include "search/many/skip_table.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "bytes/byte_set.h"
#include "bytes/cpu.h"

namespace vstring::search {
namespace {

constexpr std::uint64_t kGoldenRatio = 0x9e3779b97f4a7c15;  // spreads the bytes over the high bits
constexpr std::size_t kFewPatterns = 2 * PrefixFilter::kPrefixes;
constexpr std::size_t kPlacesPerEntry = 256;
constexpr std::size_t kLeastFiltered = 3;
constexpr std::size_t kMinSize = 256;
constexpr std::size_t kMaxSize = std::size_t{1} << 20;  // a second-level cache
constexpr double kStopCost = 32;                        // of a look-up's

// The bytes of a pattern from `offset` on, as many as are looked up.
std::uint64_t bytes_at(const Pattern& pattern, std::size_t offset) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, pattern.text + offset,
              std::min<std::size_t>(sizeof bytes, pattern.length - offset));
  return bytes;
}

int letters_of(std::span<const Pattern> patterns, std::size_t head) {
  ByteSet letters;
  for (const Pattern& pattern : patterns) {
    for (std::size_t i = 0; i < head; ++i) letters.add(static_cast<Byte>(pattern.text[i]));
  }
  return letters.count();
}

// The length of grams with which a text takes least time: short ones allow longer strides, but stop
// more often. Some of many letters are common and others rare, as if there were fewer.
std::size_t best_gram(std::span<const Pattern> patterns, std::size_t head) {
  const double letters = letters_of(patterns, head);
  double kinds = 1;
  double least = 0;
  std::size_t best = 0;
  for (std::size_t gram = 1; gram <= head; ++gram) {
    const std::size_t stride = head - gram + 1;
    kinds *= std::min(letters, 4 + letters / 3);
    const double cost =
        1 / static_cast<double>(stride) + kStopCost * static_cast<double>(patterns.size()) / kinds;
    if (best != 0 && cost >= least) continue;
    least = cost;
    best = gram;
  }
  return best;
}

}  // namespace

bool SkipTable::Table::prepare(VstringPool* pool, std::size_t length, std::size_t entries) {
  const std::size_t most = std::min(entries, kMaxSize / kPlacesPerEntry);
  const std::size_t size = std::max(kMinSize, std::bit_ceil(most * kPlacesPerEntry));
  factor = kGoldenRatio << (64 - 8 * length);
  shift = static_cast<std::uint32_t>(64 - std::countr_zero(size));
  slots = static_cast<Byte*>(pool_alloc0(pool, size, 1));
  return slots != nullptr;
}

bool SkipTable::prepare(VstringPool* pool, std::span<const Pattern> patterns) {
  head_ = patterns.empty() ? 1 : kLongestHead;
  for (const Pattern& pattern : patterns) head_ = std::min<std::size_t>(head_, pattern.length);
  filtered_ = std::min(head_, PrefixFilter::kMaxLength);
  has_filter_ = has_avx2() && patterns.size() <= kFewPatterns && filtered_ >= kLeastFiltered;
  filter_ = {};
  const std::size_t gram = has_filter_ ? head_ : best_gram(patterns, head_);
  stride_ = head_ - gram + 1;
  if (!heads_.prepare(pool, head_, patterns.size())) return false;
  grams_ = heads_;
  if (stride_ > 1 && !grams_.prepare(pool, gram, patterns.size() * stride_)) return false;
  for (const Pattern& pattern : patterns) {
    const std::uint64_t bytes = bytes_at(pattern, 0);
    Byte& followers = heads_.of(bytes);
    followers = static_cast<Byte>(followers | (pattern.length > head_ ? follower(bytes) : 255));
    for (std::size_t i = 0; stride_ > 1 && i < stride_; ++i) grams_.of(bytes_at(pattern, i)) = 1;
    if (!has_filter_) continue;
    const auto number = static_cast<std::size_t>(&pattern - patterns.data());
    for (std::size_t i = 0; i < filtered_; ++i) {
      const auto byte = static_cast<Byte>(pattern.text[i]);
      filter_.add(number % PrefixFilter::kPrefixes, i, ByteSet(Bytes(&byte, 1)));
    }
  }
  return true;
}

}  // namespace vstring::search
