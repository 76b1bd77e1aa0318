// Replacement templates: & stands for the whole match, \0 .. \9 for a group, \& and \\ for
// themselves. Any other backslash stands for itself, and so does every other byte. A group that
// took no part expands to nothing.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/growing_text.h"
#include "runtime/memory.h"
#include "search/regex/match.h"

namespace vstring::regex {

class Template {
 public:
  // Takes a template apart; false when memory fails.
  bool read(Bytes text);

  // Appends the expansion to `out`; false when memory fails.
  bool expand(Bytes text, const Match& match, GrowingText& out) const {
    for (const Piece& piece : pieces_) {
      if (!out.append_part(plain_.view(), piece.at, piece.length)) return false;
      if (piece.group == kNoGroup || !match.has(piece.group)) continue;
      const std::size_t start = match.start(piece.group);
      if (!out.append_part(text, start, match.end(piece.group) - start)) return false;
    }
    return true;
  }

 private:
  static constexpr int kNoGroup = -1;
  // Bytes to copy, those of plain_ from `at` on, and then a group to insert, or kNoGroup.
  struct Piece {
    std::size_t at;
    std::size_t length;
    int group;
  };

  Buffer<Piece> pieces_;
  Buffer<Byte> plain_;
};

}  // namespace vstring::regex
