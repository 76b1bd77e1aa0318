// Margins of lines, put there or taken away. Lines are the pieces between newlines; one whose bytes
// are all white space looks empty and has no margin.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring::text {

// A text, or so many blanks.
struct Margin {
  Bytes text;
  std::size_t blanks;

  std::size_t size() const { return text.size() + blanks; }
};

// The length of `text` with the margin before every line that does not look empty.
std::uint64_t indented_length(Bytes text, const Margin& margin);
// Writes that text to `out`, which has its length.
void indent(Bytes text, const Margin& margin, MutableBytes out);

// Writes `text` without the longest common prefix of the runs of blanks and tabs that its lines
// begin with, compared byte by byte; a line that looks empty loses its whole run. `out` has room
// for as many bytes as the text. Returns the length.
std::size_t dedent(Bytes text, MutableBytes out);

}  // namespace vstring::text
