#include "search/approximate/pieces.h"

#include <algorithm>

namespace vstring::search {

Pieces::Pieces(Bytes pattern, Bytes text, std::size_t k)
    : m_(pattern.size()), n_(text.size()), k_(k), count_(k + 1) {
  const std::size_t length = m_ / count_;
  for (std::size_t i = 0; i < count_; ++i) {
    pieces_[i].offset = i * length;
    pieces_[i].finder.start(pattern.subspan(i * length, length), text);
    find_next(pieces_[i]);
  }
}

bool Pieces::next(Window& window) {
  Piece& first = *std::min_element(pieces_, pieces_ + count_, [](const Piece& a, const Piece& b) {
    return a.window.begin < b.window.begin;
  });
  window = first.window;
  if (window.begin == npos) return false;
  find_next(first);
  return true;
}

// k edits ahead of the piece, or behind it, move the ends of an occurrence by k at most.
void Pieces::find_next(Piece& piece) {
  const std::size_t at = piece.finder.next();
  piece.window = {npos, npos};
  if (at == npos) return;
  const std::size_t before = piece.offset + k_;
  piece.window = {at < before ? 0 : at - before, std::min(n_, at + (m_ - piece.offset) + k_)};
}

}  // namespace vstring::search
