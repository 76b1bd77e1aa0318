#include "text/layout/tabs.h"

#include "bytes/byte_scan.h"
#include "text/layout/fill.h"

namespace vstring::text {
namespace {

// Calls copy(piece) for what stays as it is and fill(blanks) for each tab, in order.
template <typename Copy, typename Blanks>
void for_each_piece(Bytes text, std::size_t tab, Copy copy, Blanks fill) {
  const ByteScan stops(ByteSet(bytes_of("\t\n\r")));
  std::size_t column = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t stop = stops.find(text, i);
    const bool is_tab = stop < text.size() && text[stop] == '\t';
    const bool is_line_end = stop < text.size() && !is_tab;
    copy(text.subspan(i, stop - i + (is_line_end ? 1 : 0)));
    column = is_line_end ? 0 : column + (stop - i);
    if (is_tab) {
      const std::size_t blanks = tab - column % tab;
      fill(blanks);
      column += blanks;
    }
    i = stop;
  }
}

}  // namespace

std::uint64_t expanded_length(Bytes text, std::size_t tab) {
  std::uint64_t length = 0;
  for_each_piece(
      text, tab, [&](Bytes piece) { length += piece.size(); },
      [&](std::size_t blanks) { length += blanks; });
  return length;
}

void expand_tabs(Bytes text, std::size_t tab, MutableBytes out) {
  for_each_piece(
      text, tab, [&](Bytes piece) { out = copy_into(out, piece); },
      [&](std::size_t blanks) {
        Fill(' ', out.first(blanks));
        out = out.subspan(blanks);
      });
}

std::size_t unexpand_tabs(Bytes text, std::size_t tab, MutableBytes out) {
  const ByteScan line_ends(ByteSet(bytes_of("\n\r")));
  MutableBytes rest = out;
  for (std::size_t i = 0; i < text.size();) {
    std::size_t column = 0;
    for (; i < text.size() && (text[i] == ' ' || text[i] == '\t'); ++i) {
      column += text[i] == ' ' ? 1 : tab - column % tab;
    }
    Fill('\t', rest.first(column / tab));
    rest = rest.subspan(column / tab);
    Fill(' ', rest.first(column % tab));
    rest = rest.subspan(column % tab);
    const std::size_t line_end = line_ends.find(text, i);
    const std::size_t next = line_end == text.size() ? line_end : line_end + 1;
    rest = copy_into(rest, text.subspan(i, next - i));
    i = next;
  }
  return out.size() - rest.size();
}

}  // namespace vstring::text
