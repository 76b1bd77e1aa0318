// The frame that the digests stand on (R. Merkle, I. Damgard, 1989): the message, completed to
// whole blocks by a 1 bit, zeroes and its length in bits, is compressed block by block into a chain
// of words.
#pragma once
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "bytes/big_endian.h"
#include "random/digest.h"

namespace vstring::random {

// Sixteen words make a block.
template <typename Word>
using BlockWords = std::array<Word, 16>;

template <typename Word>
BlockWords<Word> block_words(const Byte* block) {
  BlockWords<Word> words;
  std::memcpy(words.data(), block, sizeof words);
  return words;
}

enum class LengthOrder { low_byte_first, high_byte_first };

// Calls compress(blocks, count) for all blocks in order: those of the message where they lie, and
// its padded end. The length takes two words of a block.
template <typename Word, LengthOrder order, typename Compress>
void compress_all(Bytes message, Compress compress) {
  constexpr std::size_t kBlock = sizeof(BlockWords<Word>);
  constexpr std::size_t kLength = 2 * sizeof(Word);
  const std::size_t whole = message.size() / kBlock;
  if (whole > 0) compress(message.data(), whole);

  std::array<Byte, 2 * kBlock> end = {};
  const Bytes rest = message.subspan(whole * kBlock);
  copy_into(end, rest);
  end[rest.size()] = 0x80;
  const std::size_t blocks = rest.size() + 1 + kLength <= kBlock ? 1 : 2;
  Byte* const field = end.data() + blocks * kBlock;
  std::uint64_t bits = std::uint64_t{8} * message.size();
  if constexpr (order == LengthOrder::low_byte_first) {
    std::memcpy(field - kLength, &bits, sizeof bits);
  } else {
    bits = big_endian(bits);
    std::memcpy(field - sizeof bits, &bits, sizeof bits);
  }
  compress(end.data(), blocks);
}

}  // namespace vstring::random
