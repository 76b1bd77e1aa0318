#include "search/many/skip_table.h"

#include <algorithm>
#include <bit>

namespace vstring::search {
namespace {

constexpr std::size_t kMaxLength = 64;
constexpr std::size_t kMaxBlocks = std::size_t{1} << 14;  // with more, every block is in the table
constexpr std::size_t kFewPatterns = 2 * PrefixFilter::kPrefixes;
constexpr std::size_t kMinSize = 256;
constexpr std::size_t kMaxSize = std::size_t{1} << 16;

std::size_t shortest(std::span<const Pattern> patterns) {
  std::size_t m = patterns.empty() ? 0 : kMaxLength;
  for (const Pattern& pattern : patterns) m = std::min<std::size_t>(m, pattern.length);
  return m;
}

}  // namespace

bool SkipTable::prepare(VstringPool* pool, std::span<const Pattern> patterns) {
  *this = {};
  const std::size_t m = shortest(patterns);
  if (m < kBlock) return true;
  const std::size_t stride = m - kBlock + 1;
  if (patterns.size() > kMaxBlocks / stride) return true;
  has_filter_ = patterns.size() <= kFewPatterns;

  const std::size_t wanted = std::bit_ceil(16 * stride * patterns.size());
  const std::size_t size = std::clamp(wanted, kMinSize, kMaxSize);
  places_ = static_cast<Byte*>(pool_alloc0(pool, size, 1));
  if (places_ == nullptr) return false;
  hash_shift_ = static_cast<std::uint32_t>(32 - std::countr_zero(size));
  stride_ = stride;
  for (const Pattern& pattern : patterns) {
    const auto* const text = reinterpret_cast<const Byte*>(pattern.text);
    for (std::size_t i = 0; i < stride; ++i) {
      Byte& place = places_[hash(text + i)];
      const auto depth = static_cast<Byte>(i + 1);
      if ((place & ~kBegins) < depth) place = static_cast<Byte>((place & kBegins) | depth);
    }
    places_[hash(text)] |= kBegins;
    if (!has_filter_) continue;
    const auto number = static_cast<std::size_t>(&pattern - patterns.data());
    for (std::size_t i = 0; i < kBlock; ++i) {
      filter_.add(number % PrefixFilter::kPrefixes, i, ByteSet(Bytes(text + i, 1)));
    }
  }
  return true;
}

}  // namespace vstring::search
