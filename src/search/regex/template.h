// Replacement templates: & stands for the whole match, \0 .. \9 for a group, \& and \\ for
// themselves. Any other backslash stands for itself, and so does every other byte. A group that
// took no part expands to nothing.
#pragma once
#include <bit>
#include <cstddef>

#include "bytes/bytes.h"
#include "bytes/copy.h"
#include "runtime/memory.h"
#include "runtime/status.h"
#include "search/regex/match.h"

namespace vstring::regex {

class Template {
 public:
  // Takes a template apart; false when memory fails.
  bool read(Bytes text);

  // Bytes of the expansion; Status::out_of_memory when no text can be that long.
  Result<std::size_t> expanded_length(Bytes text, const Match& match) const {
    std::size_t length = length_;
    for (unsigned rest = groups_; rest != 0; rest &= rest - 1) {
      const int group = std::countr_zero(rest);
      std::size_t inserted = 0;
      if (__builtin_mul_overflow(match.group(text, group).size(), uses_[group], &inserted) ||
          __builtin_add_overflow(length, inserted, &length)) {
        return Status::out_of_memory;
      }
    }
    return length;
  }

  // Writes the expansion to the start of `out` and returns what is left of it.
  MutableBytes expand(Bytes text, const Match& match, MutableBytes out) const {
    for (const Piece& piece : pieces_) {
      out = copy_part(out, plain_.view(), piece.at, piece.length);
      if (piece.group == kNoGroup || !match.has(piece.group)) continue;
      const std::size_t start = match.start(piece.group);
      out = copy_part(out, text, start, match.end(piece.group) - start);
    }
    return out;
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
  std::size_t length_ = 0;          // of all plain bytes
  unsigned groups_ = 0;             // bit n: group n is inserted
  std::size_t uses_[kGroups] = {};  // how often
};

}  // namespace vstring::regex
