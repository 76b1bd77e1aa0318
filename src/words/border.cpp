#include "words/border.h"

#include <algorithm>

#include "runtime/small_array.h"
#include "words/shift.h"

namespace vstring::words {
namespace {

bool fits_short_cells(Bytes word) { return word.size() <= UINT32_MAX; }

template <typename Cell>
Result<std::size_t> last_border(Bytes word) {
  SmallArray<Cell, kShortTable> border;
  if (!border.allocate(word.size() + 1)) return Status::out_of_memory;
  border_array<Cell>(word, border.view());
  const Cell longest = border.view().back();
  border.free();
  return static_cast<std::size_t>(longest);
}

// Longest prefix of `t` matched where the scan of `s` ends. `links` is the word whose borders the
// scan falls back along; its first |s| letters suffice, since no more are ever matched.
template <typename Cell>
Result<std::size_t> matched_at_end(Bytes s, Bytes t, Bytes links) {
  SmallArray<Cell, kShortTable> table;
  if (!table.allocate(links.size() + 1)) return Status::out_of_memory;
  const std::span<Cell> border = table.view();
  border_array<Cell>(links, border);
  std::size_t j = 0;
  for (const Byte c : s) {
    if (j == t.size()) break;
    while (j > 0 && c != t[j]) j = border[j];
    if (c == t[j]) ++j;
  }
  table.free();
  return j;
}

}  // namespace

template <typename Cell>
void border_array(Bytes word, std::span<Cell> border) {
  border[0] = 0;
  if (word.empty()) return;
  border[1] = 0;
  std::size_t i = 1;
  std::size_t k = 0;  // a border of word[0, i); all longer ones have been tried with word[i]
  while (i < word.size()) {
    if (word[i] == word[k]) {
      border[++i] = static_cast<Cell>(++k);
    } else if (k > 0) {
      k = border[k];
    } else {
      border[++i] = 0;
    }
  }
}

template void border_array(Bytes word, std::span<std::uint32_t> border);
template void border_array(Bytes word, std::span<std::uint64_t> border);

Result<std::size_t> longest_border_by_array(Bytes word) {
  return fits_short_cells(word) ? last_border<std::uint32_t>(word)
                                : last_border<std::uint64_t>(word);
}

Result<std::size_t> overlap(Bytes s, Bytes t) {
  if (t.size() >= s.size()) {
    if (const auto p = find_shift(s, t, 0)) return s.size() - *p;
  }
  const Bytes links = (t.size() >= s.size() ? t : s).first(std::min(s.size(), t.size()));
  return fits_short_cells(links) ? matched_at_end<std::uint32_t>(s, t, links)
                                 : matched_at_end<std::uint64_t>(s, t, links);
}

}  // namespace vstring::words
