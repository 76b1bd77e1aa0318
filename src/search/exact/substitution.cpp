#include "search/exact/substitution.h"

#include <algorithm>

#include "bytes/copy.h"
#include "runtime/scratch.h"
#include "search/exact/reported_count.h"

namespace vstring::search {
namespace {

using Wide = __int128;  // products of two lengths

// As much of `piece` as there is room for.
MutableBytes copy_fitting(MutableBytes out, Bytes piece) {
  return copy_into(out, piece.first(std::min(piece.size(), out.size())));
}

}  // namespace

Substitution::Substitution(Bytes text, Bytes pattern, Bytes replacement)
    : text_(text),
      pattern_(pattern),
      replacement_(replacement),
      finder_(pattern, text),
      first_(finder_.next()) {}

Wide Substitution::length_after(std::size_t count) const {
  return Wide{text_.size()} + Wide{count} * (Wide{replacement_.size()} - Wide{pattern_.size()});
}

std::size_t Substitution::room() {
  const std::size_t m = pattern_.size();
  const bool is_short = replacement_.size() < m && text_.size() < kScratchLimit;
  if (is_short || replacement_.size() == m) return text_.size();
  // To look twice is quicker than to keep what was found.
  std::size_t found = 0;
  std::size_t replaced = 0;
  std::size_t done = 0;
  Finder finder = finder_;
  for (std::size_t at = first_; at != npos; at = finder.next()) {
    ++found;
    if (at < done) continue;
    ++replaced;
    done = at + m;
  }
  const Wide length = std::min(length_after(replaced), length_after(found) + 1);
  is_kept_ = !counts_as_found(found);
  if (is_kept_) return text_.size();
  return length < Wide{PTRDIFF_MAX} ? static_cast<std::size_t>(std::max(length, Wide{0}))
                                    : SIZE_MAX;
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
  for (std::size_t at = is_kept_ ? npos : first_; at != npos; at = finder_.next()) {
    ++count;
    if (at < done) continue;
    if (at - done + replacement_.size() > rest.size()) {
      copy_fitting(copy_fitting(rest, text_.subspan(done, at - done)), replacement_);
      return out.size();
    }
    rest = copy_part(rest, text_, done, at - done);
    rest = copy_part(rest, replacement, 0, replacement_.size());
    done = at + pattern_.size();
  }
  if (is_kept_ || !counts_as_found(count)) {
    copy_into(out, text_);
    return text_.size();
  }
  rest = copy_fitting(rest, text_.subspan(done));
  const Wide written = Wide{out.size()} - Wide{rest.size()};
  return static_cast<std::size_t>(std::clamp(length_after(count) + 1, Wide{0}, written));
}

}  // namespace vstring::search
