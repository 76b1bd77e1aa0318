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
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/growing_text.h"
#include "runtime/status.h"

namespace vstring::text {

struct WrapSettings {
  std::uint32_t width = 80;
  bool count_bytes = false;  // a tab or backspace is one column
  bool expand_tabs = true;   // where spaces are obeyed, a tab becomes blanks up to the next stop
  bool obey_lines = false;   // newlines stay, and end a line
  bool obey_spaces = false;  // every blank stays; one that passes the width is followed by a break
};

// Appends the wrapped text to `out`, which is empty. O(n).
Status wrap(Bytes text, const WrapSettings& settings, GrowingText& out);

}  // namespace vstring::text
