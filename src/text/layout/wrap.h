// Greedy line wrapping.
//
// Line breaks are put between words, so that a line has at most `width` columns unless a single
// word has more. Words are never split and nothing is justified. What separates words is the class
// `space` of the class table.
//
// Runs of whitespace shrink to their first byte unless spaces are obeyed, and the blank before a
// break stays at the end of its line. A newline of the text that is not obeyed counts as one
// column; it does keep the next word from getting a second break.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring::text {

struct WrapSettings {
  std::uint32_t width = 80;
  bool count_bytes = false;  // a tab or backspace is one column
  bool expand_tabs = true;   // where spaces are obeyed, a tab becomes blanks up to the next stop
  bool obey_lines = false;   // newlines stay, and end a line
  bool obey_spaces = false;  // every blank stays; one that passes the width is followed by a break
};

// How many bytes the wrapped text has at most.
std::size_t wrapped_bound(Bytes text, const WrapSettings& settings);

// Writes the wrapped text to `out`, of at least wrapped_bound bytes and apart from `text`, and
// returns its length. O(n).
std::size_t wrap(Bytes text, const WrapSettings& settings, MutableBytes out);

}  // namespace vstring::text
