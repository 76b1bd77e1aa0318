#include "search/exact/substitution.h"

#include <algorithm>

#include "search/exact/exact.h"

namespace vstring::search {
namespace {

using Wide = __int128;  // products of two lengths

// Length of the text after `count` replacements of m bytes by r.
Wide length_after(std::size_t n, std::size_t count, std::size_t m, std::size_t r) {
  return Wide{n} + Wide{count} * (Wide{r} - Wide{m});
}

void drop_overlapping(std::size_t m, HeldArray<std::size_t>& occurrences) {
  std::size_t kept = 0;
  std::size_t end = 0;  // of the last occurrence kept
  for (const std::size_t at : occurrences) {
    if (at < end) continue;
    occurrences[kept++] = at;
    end = at + m;
  }
  while (occurrences.size() > kept) occurrences.pop_back();
}

}  // namespace

std::size_t plan_substitution(std::size_t text_length, std::size_t m, std::size_t r,
                              HeldArray<std::size_t>& occurrences) {
  const Wide cut = length_after(text_length, occurrences.size(), m, r) + 1;
  drop_overlapping(m, occurrences);
  const Wide whole = length_after(text_length, occurrences.size(), m, r);
  const Wide length = std::max(Wide{0}, std::min(cut, whole));
  return length < Wide{PTRDIFF_MAX} ? static_cast<std::size_t>(length) : SIZE_MAX;
}

void substitute(Bytes text, std::size_t m, Bytes replacement,
                std::span<const std::size_t> occurrences, MutableBytes out) {
  const auto write = [&out](Bytes piece) {
    out = copy_into(out, piece.first(std::min(piece.size(), out.size())));
  };
  std::size_t done = 0;  // bytes of the text dealt with
  for (const std::size_t at : occurrences) {
    write(text.subspan(done, at - done));
    write(replacement);
    done = at + m;
    if (out.empty()) return;
  }
  write(text.subspan(done));
}

}  // namespace vstring::search
