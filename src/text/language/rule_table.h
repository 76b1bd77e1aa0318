// What the rule tables of the stemmers and phonetic codes are made of.
//
// A table keeps the order and the notation of its publication; consteval functions turn its rows
// into the form that the algorithm uses, and do not accept one that cannot be read.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "bytes/bytes.h"
#include "runtime/malformed_row.h"

namespace vstring::text {

// A few letters with their count, as rows hold them.
struct Letters {
  static constexpr std::size_t kRoom = 7;

  constexpr Letters() = default;
  consteval Letters(const char* letters) {  // NOLINT: rows are written as plain literals
    while (*letters != '\0') append(*letters++);
  }

  consteval void append(char letter) {
    if (letter < 'a' || letter > 'z' || size == kRoom) malformed_row();
    bytes[size++] = static_cast<Byte>(letter);
  }
  constexpr Bytes view() const { return {bytes, size}; }
  constexpr Byte last() const { return bytes[size - 1]; }
  constexpr bool has(Byte c) const {
    for (std::size_t i = 0; i < size; ++i) {
      if (bytes[i] == c) return true;
    }
    return false;
  }
  // Whether the `size` bytes that end (begin) at `p` are these letters.
  bool end_at(const Byte* end) const { return std::memcmp(end - size, bytes, size) == 0; }
  bool begin_at(const Byte* p) const { return std::memcmp(p, bytes, size) == 0; }

  std::uint8_t size = 0;
  Byte bytes[kRoom] = {};
};

// The rows of a table that share a letter, for tables that keep their rows in the order of it.
struct RowsByLetter {
  std::uint8_t first[27] = {};  // rows first[c - 'a'] .. first[c - 'a' + 1] - 1 belong to c

  // `letter_of(row)` is the letter of a row; rows out of order are malformed.
  template <typename Row, std::size_t N, typename LetterOf>
  static consteval RowsByLetter of(const Row (&rows)[N], LetterOf letter_of) {
    static_assert(N < 256);
    RowsByLetter index;
    std::size_t row = 0;
    for (std::size_t i = 0; i < 26; ++i) {
      index.first[i] = static_cast<std::uint8_t>(row);
      while (row < N && letter_of(rows[row]) == 'a' + i) ++row;
    }
    if (row != N) malformed_row();
    index.first[26] = static_cast<std::uint8_t>(N);
    return index;
  }

  template <typename Row, std::size_t N>
  std::span<const Row> select(const Row (&rows)[N], Byte c) const {
    if (c < 'a' || c > 'z') return {};
    const std::size_t i = c - std::size_t{'a'};
    return {rows + first[i], static_cast<std::size_t>(first[i + 1] - first[i])};
  }
};

}  // namespace vstring::text
