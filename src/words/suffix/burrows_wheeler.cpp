#include "words/suffix/burrows_wheeler.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

#include "runtime/memory.h"
#include "words/conjugate.h"
#include "words/primitivity.h"
#include "words/suffix/suffix_array.h"

namespace vstring::words {
namespace {

// Where the least rotation starts, of which rotations are told by their unsigned order: the letters
// of a copy change their sign.
std::size_t least_unsigned_rotation(Bytes word, MutableBytes copy) {
  for (std::size_t i = 0; i < word.size(); ++i) copy[i] = word[i] ^ 0x80;
  return least_rotation(copy);
}

// From this length on the word is read in pairs: for shorter ones the tables cost more.
constexpr std::size_t kWorthPairs = std::size_t{1} << 16;

using Starts = std::array<std::uint32_t, 257>;

Status invert_by_letters(Bytes last, Starts next, std::uint32_t* row, std::size_t rank,
                         MutableBytes word) {
  for (std::size_t i = 0; i < last.size(); ++i) row[i] = next[last[i]]++;
  for (std::size_t i = word.size(); i-- > 0; rank = row[rank]) word[i] = last[rank];
  return Status::ok;
}

// Two letters for one look into memory, far from the one before: a cell leads two rows on, and the
// row that it leads to begins with the two letters in question. As rows that begin alike stay in
// order, they are numbered as single letters are, without following any of them.
Status invert_by_pairs(Bytes last, const Starts& first, std::uint32_t* row, std::size_t rank,
                       MutableBytes word) {
  constexpr std::size_t kPairs = std::size_t{1} << 16;
  Buffer<std::uint32_t> ends;   // of the rows that begin with each pair
  Buffer<std::uint16_t> pairs;  // that evenly spaced rows begin with
  const auto shift = static_cast<unsigned>(std::bit_width(last.size())) - 16;
  const std::size_t spaced = ((last.size() - 1) >> shift) + 1;
  if (!ends.resize(kPairs) || !pairs.resize(spaced + 1)) return Status::out_of_memory;
  const auto for_each_pair = [&](auto visit) {
    Starts next = first;
    for (std::size_t i = 0; i < last.size(); ++i) {
      const Byte second = last[i];
      visit(i, std::size_t{256} * last[next[second]++] + second);
    }
  };
  std::fill_n(ends.data(), kPairs, 0U);
  for_each_pair([&](std::size_t, std::size_t pair) { ++ends[pair]; });
  std::uint32_t sum = 0;
  for (std::size_t pair = 0; pair < kPairs; ++pair) sum += std::exchange(ends[pair], sum);
  for_each_pair([&](std::size_t i, std::size_t pair) { row[i] = ends[pair]++; });
  std::uint16_t pair = 0;
  for (std::size_t k = 0; k < spaced; ++k) {
    while (ends[pair] <= k << shift) ++pair;
    pairs[k] = pair;
  }
  pairs[spaced] = kPairs - 1;

  std::size_t i = word.size();
  for (; i >= 2; i -= 2) {
    rank = row[rank];
    const std::uint16_t* const around = pairs.data() + (rank >> shift);
    // Most often both are the same pair.
    const auto found = static_cast<std::size_t>(
        std::upper_bound(ends.data() + around[0], ends.data() + around[1], rank) - ends.data());
    word[i - 1] = static_cast<Byte>(found);
    word[i - 2] = static_cast<Byte>(found >> 8);
  }
  if (i == 1) word[0] = last[rank];
  return Status::ok;
}

}  // namespace

Result<std::size_t> burrows_wheeler(Bytes word, MutableBytes last) {
  const std::size_t n = primitive_root(word);
  const Bytes root = word.first(n);
  Buffer<Byte> lyndon;
  Buffer<std::int32_t> sorted;
  if (n >= kSuffixLimit || !lyndon.resize(n) || !sorted.resize(n)) return Status::out_of_memory;
  const std::size_t start = least_unsigned_rotation(root, {lyndon.data(), n});
  copy_into(copy_into({lyndon.data(), n}, root.subspan(start)), root.first(start));
  const std::size_t own = start == 0 ? 0 : n - start;  // where the word begins in the Lyndon word
  const Result<std::size_t> rank =
      letters_before_sorted(lyndon.view(), own, {sorted.data(), sorted.size()});
  if (!rank.ok()) return rank;

  sorted[0] = lyndon[n - 1];
  const std::size_t power = word.size() / n;
  for (std::size_t r = 0; r < n; ++r) {
    const auto letter = static_cast<Byte>(sorted[r]);
    if (power == 1) {
      last[r] = letter;
    } else {
      std::memset(last.data() + power * r, letter, power);
    }
  }
  return *rank * power;
}

Status inverse_burrows_wheeler(Bytes last, std::size_t rank, MutableBytes word) {
  Buffer<std::uint32_t> row;
  if (last.size() > UINT32_MAX || !row.resize(last.size())) return Status::out_of_memory;
  std::array<std::uint32_t, 257> first = {};  // rows in front of those that begin with a letter
  for (const Byte c : last) ++first[c + 1U];
  for (unsigned c = 0; c < 256; ++c) first[c + 1] += first[c];
  return last.size() < kWorthPairs ? invert_by_letters(last, first, row.data(), rank, word)
                                   : invert_by_pairs(last, first, row.data(), rank, word);
}

}  // namespace vstring::words
