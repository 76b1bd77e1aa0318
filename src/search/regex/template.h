// Replacement templates: & stands for the whole match, \0 .. \9 for a group, \& and \\ for
// themselves. Any other backslash stands for itself, and so does every other byte. A group that
// took no part expands to nothing.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"
#include "search/regex/match.h"

namespace vstring::regex {

class Template {
 public:
  // Takes a template apart; false when memory fails.
  bool read(Bytes text);

  // Bit n: group n is inserted.
  unsigned groups() const { return groups_; }

  // Bytes of the expansion; Status::out_of_memory when no text can be that long.
  Result<std::size_t> expanded_length(Bytes text, const Match& match) const;

  // Writes the expansion to the start of `out` and returns what is left of it.
  MutableBytes expand(Bytes text, const Match& match, MutableBytes out) const;

  void free();

 private:
  // Bytes to copy, those of plain_ from `at` on, and then a group to insert; -1: none.
  struct Piece {
    std::size_t at;
    std::size_t length;
    int group;
  };

  HeldArray<Piece> pieces_;
  HeldArray<Byte> plain_;
  std::size_t length_ = 0;  // of all plain bytes
  unsigned groups_ = 0;
};

}  // namespace vstring::regex
