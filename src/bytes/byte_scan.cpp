#include "bytes/byte_scan.h"

#include <bit>
#include <cstdint>
#include <cstring>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {
namespace {

#ifdef VSTRING_AVX2

// Bit i tells whether byte i of a block is a member. A shuffle gives 0 for the bytes whose top bit
// is set, so that each of the two tables answers for its own half of the bytes.
VSTRING_AVX2 std::uint32_t members(__m256i lower, __m256i upper, const Byte* block) {
  const __m256i bit_of = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201));
  const __m256i bytes = avx2::load(block);
  const __m256i flipped = _mm256_xor_si256(bytes, _mm256_set1_epi8(-128));
  const __m256i row =
      _mm256_or_si256(_mm256_shuffle_epi8(lower, bytes), _mm256_shuffle_epi8(upper, flipped));
  const __m256i bit = _mm256_shuffle_epi8(bit_of, avx2::upper_halves(bytes));
  return avx2::non_zero(_mm256_and_si256(row, bit));
}

// Goes over whole blocks, to the byte that is looked for or to where less than a block is left.
VSTRING_AVX2 std::size_t find_in_blocks(const Byte* lower, const Byte* upper, bool member,
                                        Bytes text, std::size_t at) {
  const __m256i lower_rows = avx2::load_table(lower);
  const __m256i upper_rows = avx2::load_table(upper);
  const std::uint32_t unwanted = member ? 0 : UINT32_MAX;
  for (; text.size() - at >= avx2::kBlock; at += avx2::kBlock) {
    const std::uint32_t hits = members(lower_rows, upper_rows, text.data() + at) ^ unwanted;
    if (hits != 0) return at + static_cast<std::size_t>(std::countr_zero(hits));
  }
  return at;
}

VSTRING_AVX2 std::uint64_t members_of_two(const Byte* lower, const Byte* upper,
                                          const Byte* blocks) {
  const __m256i lower_rows = avx2::load_table(lower);
  const __m256i upper_rows = avx2::load_table(upper);
  const std::uint64_t second = members(lower_rows, upper_rows, blocks + avx2::kBlock);
  return second << 32 | members(lower_rows, upper_rows, blocks);
}

#endif

}  // namespace

ByteScan::ByteScan(const ByteSet& set) : set_(set) {
  int count = 0;
  set.for_each([&](unsigned c) {
    Byte* const rows = c < 128 ? lower_ : upper_;
    rows[c % 16] = static_cast<Byte>(rows[c % 16] | 1U << (c / 16 % 8));
    ++count;
  });
  is_all_but_one_ = count == 255;
  while (is_all_but_one_ && set.has(other_)) ++other_;
}

std::size_t ByteScan::find_far(bool member, Bytes text, std::size_t at) const {
  if (!member && is_all_but_one_) {
    const void* const found = std::memchr(text.data() + at, other_, text.size() - at);
    if (found == nullptr) return text.size();
    return static_cast<std::size_t>(static_cast<const Byte*>(found) - text.data());
  }
#ifdef VSTRING_AVX2
  if (has_avx2()) at = find_in_blocks(lower_, upper_, member, text, at);
#endif
  while (at < text.size() && set_.has(text[at]) != member) ++at;
  return at;
}

std::uint64_t ByteScan::members(Bytes text) const {
#ifdef VSTRING_AVX2
  constexpr std::size_t kBlocks = 2 * avx2::kBlock;
  if (has_avx2() && text.size() == kBlocks) return members_of_two(lower_, upper_, text.data());
  constexpr std::size_t kFew = 8;  // bytes that are sooner asked for one by one
  if (has_avx2() && text.size() > kFew) {
    Byte blocks[kBlocks];
    std::memcpy(blocks, text.data(), text.size());
    return members_of_two(lower_, upper_, blocks) & UINT64_MAX >> (kBlocks - text.size());
  }
#endif
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < text.size(); ++i) bits |= std::uint64_t{set_.has(text[i])} << i;
  return bits;
}

}  // namespace vstring
