// Where occurrences within k edits may lie.
//
// Of a pattern cut into k + 1 pieces one at least has no edit and occurs as it is (S. Wu and U.
// Manber, "Fast text searching allowing errors", 1992). The finders of the pieces run through the
// text at the speed of memory; only around what they find a table need be asked.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "search/exact/exact.h"

namespace vstring::search {

class Pieces {
 public:
  // Whether the pieces are long enough to be rare.
  static bool are_useful(std::size_t m, std::size_t k) {
    return k + 1 <= kMost && m / (k + 1) >= kShortest;
  }

  Pieces(Bytes pattern, Bytes text, std::size_t k);

  // Where an occurrence around a piece that was found must lie.
  struct Window {
    std::size_t begin;
    std::size_t end;
  };

  // The next window by its begin; false when there is none.
  bool next(Window& window);

 private:
  static constexpr std::size_t kMost = 9;  // a finder takes 2 kB of stack
  static constexpr std::size_t kShortest = 4;

  struct Piece {
    std::size_t offset = 0;
    Finder finder;
    Window window = {npos, npos};
  };

  void find_next(Piece& piece);

  std::size_t m_;
  std::size_t n_;
  std::size_t k_;
  std::size_t count_;
  Piece pieces_[kMost];
};

}  // namespace vstring::search
