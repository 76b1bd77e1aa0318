#include "search/exact/substitution.h"

#include <algorithm>

#include "bytes/copy.h"
#include "search/exact/reported_count.h"

namespace vstring::search {

Substitution::Substitution(Bytes text, Bytes pattern, Bytes replacement)
    : text_(text),
      pattern_(pattern),
      replacement_(replacement),
      finder_(pattern, text),
      first_(finder_.next()) {}

std::size_t Substitution::room() const {
  const std::size_t m = pattern_.size();
  const std::size_t r = replacement_.size();
  if (r <= m) return text_.size();
  // To look twice is quicker than to keep what was found.
  std::size_t replaced = 0;
  Finder finder = finder_;
  for (std::size_t at = first_; at != npos; at = finder.next_from(at + m)) ++replaced;
  std::size_t room = 0;
  const bool is_too_long = __builtin_mul_overflow(replaced, r - m, &room) ||
                           __builtin_add_overflow(room, text_.size(), &room) || room >= PTRDIFF_MAX;
  return is_too_long ? SIZE_MAX : room;
}

std::size_t Substitution::write(MutableBytes out) {
  // A short replacement is copied as a whole block.
  Byte block[kCopyBlock];
  Bytes replacement = replacement_;
  if (replacement.size() < sizeof block) {
    copy_into(block, replacement);
    replacement = block;
  }
  MutableBytes rest = out;
  std::size_t count = 0;
  std::size_t done = 0;  // bytes of the text dealt with
  for (std::size_t at = first_; at != npos; at = finder_.next()) {
    ++count;
    if (at < done) continue;
    rest = copy_part(rest, text_, done, at - done);
    rest = copy_part(rest, replacement, 0, replacement_.size());
    done = at + pattern_.size();
  }
  if (!counts_as_found(count)) {
    rest = out;
    done = 0;
  }
  rest = copy_into(rest, text_.subspan(done));
  const std::size_t length = out.size() - rest.size();
  if (done == 0) return length;
  using Wide = __int128;  // products of two lengths
  const Wide longer = Wide{replacement_.size()} - Wide{pattern_.size()};
  const Wide cut = Wide{text_.size()} + Wide{count} * longer + 1;
  return static_cast<std::size_t>(std::clamp(cut, Wide{0}, Wide{length}));
}

}  // namespace vstring::search
