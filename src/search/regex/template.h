// Replacement templates: & stands for the whole match, \0 .. \9 for a group, \& and \\ for
// themselves. Any other backslash stands for itself, and so does every other byte. A group that
// took no part expands to nothing.
#pragma once
#include <cstddef>

#include "runtime/bytes.h"
#include "runtime/status.h"
#include "search/regex/plan.h"

namespace vstring::regex {

// A template is read piece by piece: bytes to copy, or a group to insert.
struct Piece {
  Bytes bytes;
  int group = -1;  // -1: the bytes themselves
};

class TemplateReader {
 public:
  explicit TemplateReader(Bytes text) : rest_(text) {}

  bool done() const { return rest_.empty(); }
  Piece next();  // requires !done()

 private:
  Bytes rest_;
};

// Bytes of the expansion; Status::out_of_memory when no text can be that long.
Result<std::size_t> expanded_length(Bytes replacement, Bytes text, const Match& match);

// Writes the expansion to the start of `out` and returns what is left of it.
MutableBytes expand(Bytes replacement, Bytes text, const Match& match, MutableBytes out);

}  // namespace vstring::regex
