// A set of byte values: 256 bits, so that making one from a short list costs next to nothing.
#pragma once
#include <bit>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring {

class ByteSet {
 public:
  constexpr ByteSet() = default;
  explicit ByteSet(Bytes members) {
    for (const Byte c : members) add(c);
  }

  constexpr void add(Byte c) { words_[c / 64] |= bit(c); }
  constexpr void unite(const ByteSet& more) {
    for (int i = 0; i < 4; ++i) words_[i] |= more.words_[i];
  }
  constexpr void complement() {
    for (std::uint64_t& word : words_) word = ~word;
  }
  constexpr int count() const {
    int n = 0;
    for (const std::uint64_t word : words_) n += std::popcount(word);
    return n;
  }
  // Calls visit(c) for each member, in increasing order.
  template <typename Visit>
  constexpr void for_each(Visit visit) const {
    for (int i = 0; i < 4; ++i) {
      for (std::uint64_t rest = words_[i]; rest != 0; rest &= rest - 1) {
        visit(static_cast<Byte>(64 * i + std::countr_zero(rest)));
      }
    }
  }
  constexpr bool operator==(const ByteSet&) const = default;
  // Whether a byte is in both sets.
  constexpr bool meets(const ByteSet& other) const {
    for (int i = 0; i < 4; ++i) {
      if ((words_[i] & other.words_[i]) != 0) return true;
    }
    return false;
  }
  constexpr bool has(Byte c) const { return (words_[c / 64] & bit(c)) != 0; }

 private:
  static constexpr std::uint64_t bit(Byte c) { return std::uint64_t{1} << (c % 64); }
  std::uint64_t words_[4] = {};
};

}  // namespace vstring
