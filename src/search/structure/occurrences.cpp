#include "search/structure/occurrences.h"

#include "search/exact/exact.h"

namespace vstring::search {

std::size_t count_occurrences(Bytes pattern, Bytes text, Overlaps overlaps) {
  const std::size_t step = overlaps == Overlaps::counted ? 1 : pattern.size();
  Finder finder(pattern, text);
  std::size_t count = 0;
  for (std::size_t at = finder.next(); at != npos; at = finder.next_from(at + step)) ++count;
  return count;
}

}  // namespace vstring::search
