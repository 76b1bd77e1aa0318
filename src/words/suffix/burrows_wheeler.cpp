#include "words/suffix/burrows_wheeler.h"

#include <array>
#include <cstdint>
#include <cstring>

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

}  // namespace

Result<std::size_t> burrows_wheeler(Bytes word, MutableBytes last) {
  const std::size_t n = primitive_root(word);
  const Bytes root = word.first(n);
  Buffer<Byte> lyndon;
  Buffer<std::int32_t> sorted;
  if (n >= kSuffixLimit || !lyndon.resize(n) || !sorted.resize(n)) return Status::out_of_memory;
  const std::size_t start = least_unsigned_rotation(root, {lyndon.data(), n});
  copy_into(copy_into({lyndon.data(), n}, root.subspan(start)), root.first(start));
  const Status status = suffix_array(lyndon.view(), {sorted.data(), n});
  if (status != Status::ok) return status;

  const std::size_t power = word.size() / n;
  const std::size_t own = start == 0 ? 0 : n - start;  // where the word begins in the Lyndon word
  std::size_t rank = 0;
  for (std::size_t r = 0; r < n; ++r) {
    const auto i = static_cast<std::size_t>(sorted[r]);
    if (i == own) rank = r;
    std::memset(last.data() + power * r, lyndon[(i == 0 ? n : i) - 1], power);
  }
  return rank * power;
}

Status inverse_burrows_wheeler(Bytes last, std::size_t rank, MutableBytes word) {
  Buffer<std::uint32_t> row;  // in the sorted letters, of each letter of `last`
  if (last.size() > UINT32_MAX || !row.resize(last.size())) return Status::out_of_memory;
  std::array<std::uint32_t, 257> next = {};
  for (const Byte c : last) ++next[c + 1U];
  for (unsigned c = 0; c < 256; ++c) next[c + 1] += next[c];
  for (std::size_t i = 0; i < last.size(); ++i) row[i] = next[last[i]]++;
  for (std::size_t i = word.size(); i-- > 0; rank = row[rank]) word[i] = last[rank];
  return Status::ok;
}

}  // namespace vstring::words
