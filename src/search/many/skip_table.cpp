#include "search/many/skip_table.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "bytes/cpu.h"

namespace vstring::search {
namespace {

constexpr std::uint64_t kGoldenRatio = 0x9e3779b97f4a7c15;  // spreads the bytes over the high bits
constexpr std::size_t kFewPatterns = 2 * PrefixFilter::kPrefixes;
constexpr std::size_t kPlacesPerPattern = 128;
constexpr std::size_t kMinSize = 256;
constexpr std::size_t kMaxSize = std::size_t{1} << 20;  // a second-level cache

}  // namespace

bool SkipTable::prepare(VstringPool* pool, std::span<const Pattern> patterns) {
  hashed_ = patterns.empty() ? 1 : kMostHashed;
  for (const Pattern& pattern : patterns) hashed_ = std::min<std::size_t>(hashed_, pattern.length);
  has_filter_ =
      has_avx2() && patterns.size() <= kFewPatterns && hashed_ >= PrefixFilter::kMaxLength;
  filter_ = {};
  // No pattern is empty.
  // NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult)
  factor_ = kGoldenRatio << (64 - 8 * hashed_);
  const std::size_t most = std::min(patterns.size(), kMaxSize / kPlacesPerPattern);
  const std::size_t size = std::max(kMinSize, std::bit_ceil(most * kPlacesPerPattern));
  shift_ = static_cast<std::uint32_t>(64 - std::countr_zero(size));
  begins_ = static_cast<Byte*>(pool_alloc0(pool, size, 1));
  if (begins_ == nullptr) return false;
  for (const Pattern& pattern : patterns) {
    Byte first[sizeof(std::uint64_t)] = {};
    std::memcpy(first, pattern.text, hashed_);
    begins_[hash(first)] = 1;
    if (!has_filter_) continue;
    const auto number = static_cast<std::size_t>(&pattern - patterns.data());
    for (std::size_t i = 0; i < PrefixFilter::kMaxLength; ++i) {
      filter_.add(number % PrefixFilter::kPrefixes, i, ByteSet(Bytes(first + i, 1)));
    }
  }
  return true;
}

}  // namespace vstring::search
