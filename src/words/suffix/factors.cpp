#include "words/suffix/factors.h"

#include <algorithm>

#include "words/suffix/sorted_suffixes.h"

namespace vstring::words {
namespace {

// The longest prefix of a suffix of s that begins a suffix of t, over all suffixes of s.
class LongestMatch {
 public:
  explicit LongestMatch(std::size_t start_of_t) : start_of_t_(start_of_t) {}

  // Takes the suffixes as they are sorted, or the other way round; `agreeing` is what this one and
  // the one taken before have in common.
  void take(std::size_t offset, std::size_t agreeing) {
    shared_ = std::min(shared_, agreeing);
    if (offset >= start_of_t_) {
      shared_ = npos;  // with itself: everything
    } else if (is_met_ && (shared_ > length_ || (shared_ == length_ && offset < offset_))) {
      length_ = shared_;
      offset_ = offset;
    }
    is_met_ = is_met_ || offset >= start_of_t_;
  }

  void turn() { is_met_ = false; }

  Bytes in(Bytes s) const { return s.subspan(offset_, length_); }

 private:
  std::size_t start_of_t_;
  bool is_met_ = false;        // a suffix of t
  std::size_t shared_ = npos;  // by the suffixes from the last one of t on
  std::size_t length_ = 0;
  std::size_t offset_ = 0;
};

}  // namespace

Result<std::uint64_t> count_factors(Bytes word) {
  SortedSuffixes suffixes;
  const Status status = suffixes.sort(word);
  if (status != Status::ok) return status;
  std::uint64_t count = 1;
  for (std::size_t i = 0; i < word.size(); ++i) count += word.size() - i - suffixes.agreeing(i);
  return count;
}

Result<std::uint64_t> count_factors(Bytes word, std::size_t length) {
  if (length == 0) return 1;
  if (length > word.size()) return 0;
  SortedSuffixes suffixes;
  const Status status = suffixes.sort(word);
  if (status != Status::ok) return status;
  std::uint64_t count = 0;
  for (std::size_t i = 0; i + length <= word.size(); ++i) {
    count += suffixes.agreeing(i) < length ? 1 : 0;
  }
  return count;
}

Result<Bytes> longest_common_factor(Bytes s, Bytes t) {
  if (s.empty() || t.empty()) return Bytes{};
  SortedSuffixes suffixes;
  const Status status = suffixes.sort(s, t);
  if (status != Status::ok) return status;
  LongestMatch match(s.size() + 1);
  std::size_t agreeing = 0;
  for (std::size_t r = 0; r < suffixes.size(); ++r) {
    const std::size_t offset = suffixes.offset(r);
    match.take(offset, suffixes.agreeing(offset));
  }
  match.turn();
  for (std::size_t r = suffixes.size(); r-- > 0;) {
    const std::size_t offset = suffixes.offset(r);
    match.take(offset, agreeing);
    agreeing = suffixes.agreeing(offset);
  }
  return match.in(s);
}

}  // namespace vstring::words
