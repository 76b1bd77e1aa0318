// Replacing occurrences of a pattern in a text.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "search/exact/exact.h"

namespace vstring::search {

// Replaces every occurrence of a pattern, from left to right; one that overlaps a replaced one
// stays. The result is cut at E bytes, where E is one more than the length it would have if every
// occurrence, overlapping ones included, were replaced: the cut is felt only when some overlap and
// the replacement is the shorter, and scripts depend on it.
class Substitution {
 public:
  // The three must outlive it.
  Substitution(Bytes text, Bytes pattern, Bytes replacement);

  bool is_found() const { return first_ != npos; }
  // The length of the result; of a text that fits the scratch buffer, and so what becomes of it
  // when the replacement is the shorter, its own will do. SIZE_MAX, which no allocation grants,
  // when it cannot be represented.
  std::size_t room();
  // Writes the result to `out`, which has that room, and returns its length. It is the text as it
  // is where the occurrences count as none (search/exact/reported_count.h). To be called once.
  std::size_t write(MutableBytes out);

 private:
  // Of the text with `count` replacements.
  __int128 length_after(std::size_t count) const;

  Bytes text_;
  Bytes pattern_;
  Bytes replacement_;
  Finder finder_;
  std::size_t first_;
  bool is_kept_ = false;  // the occurrences count as none
};

}  // namespace vstring::search
