// The table of edit distances of a pattern, the stretch of the text starting anywhere: moved on
// byte by byte, it tells where a stretch within k edits ends.
//
// P. H. Sellers, "The theory and computation of evolutionary distances: pattern recognition", 1980,
// on columns of bit vectors (bytes/edit_column.h); longer patterns by blocks of rows under a
// cut-off (E. Ukkonen, "Finding approximate patterns in strings", 1985).
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "bytes/edit_column.h"
#include "bytes/edit_lanes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::search {

inline constexpr std::size_t kRows = EditColumn::kRows;

// Numbers the distinct bytes of a pattern from 1 on, so that tables by byte are as small as the
// pattern's alphabet. All other bytes are number 0.
class Alphabet {
 public:
  explicit Alphabet(Bytes pattern) {
    for (const Byte c : pattern) {
      if (number_[c] == 0) number_[c] = static_cast<Byte>(size_++);
    }
  }
  std::size_t size() const { return size_; }
  std::size_t number(Byte c) const { return number_[c]; }

 private:
  // Texts hold no byte 0, so at most 255 numbers are given out.
  std::size_t size_ = 1;
  Byte number_[256] = {};
};

// A pattern of 1 to 64 bytes: for each byte, the set of positions where it stands.
class WordMasks {
 public:
  explicit WordMasks(Bytes pattern) {
    for (std::size_t i = 0; i < pattern.size(); ++i) masks_[pattern[i]] |= std::uint64_t{1} << i;
  }
  std::uint64_t operator[](Byte c) const { return masks_[c]; }
  const std::uint64_t* data() const { return masks_; }

 private:
  std::uint64_t masks_[256] = {};
};

// The table for a pattern of at most 64 bytes. Requires k < m.
class WordTable {
 public:
  // What a byte costs beside one of a long stretch, where columns go side by side.
  static constexpr std::size_t kStepCost = 4;

  WordTable(const WordMasks& masks, std::size_t m, std::size_t k)
      : pattern_{masks.data(), m, k}, over_(static_cast<std::int64_t>(m - k)) {}

  // Back to the column ahead of a text.
  void restart() {
    column_ = {};
    over_ = static_cast<std::int64_t>(pattern_.rows - pattern_.k);
  }

  // Moves on by one byte. True when the table's last row is within k.
  bool advance_by(Byte c) {
    over_ += column_.advance(pattern_.equal[c], {}, pattern_.rows - 1).value();
    return over_ <= 0;
  }

  const EditPattern& pattern() const { return pattern_; }

 private:
  EditPattern pattern_;
  EditColumn column_;
  std::int64_t over_;  // by how much the last row is above k
};

// The table for a pattern of any length, by blocks of 64 rows, of which only those above the last
// cell within k are kept up.
class BlockTable {
 public:
  static constexpr std::size_t kStepCost = 1;

  Status prepare(Bytes pattern, std::size_t k);

  // As those of WordTable.
  void restart();
  bool advance_by(Byte c);

 private:
  struct Block {
    EditColumn column;
    std::int64_t bottom;  // value of its last row
  };

  std::size_t height(std::size_t b) const {
    return b + 1 < count_ ? kRows : m_ - kRows * (count_ - 1);
  }
  const std::uint64_t* masks(Byte c) const { return masks_.data() + alphabet_.number(c) * count_; }
  void start_block(std::size_t b, std::int64_t above);
  EditChange advance_block(std::size_t b, const std::uint64_t* equal, EditChange above);

  Alphabet alphabet_{{}};
  Buffer<std::uint64_t> masks_;  // count_ words for each number of the alphabet
  Buffer<Block> blocks_;
  std::size_t m_ = 0;
  std::int64_t k_ = 0;
  std::size_t count_ = 0;
  std::size_t last_ = 0;  // the lowest block kept up
};

}  // namespace vstring::search
