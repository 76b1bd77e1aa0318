#include "search/exact/exact.h"

#include <algorithm>
#include <cstring>

#include "bytes/common.h"
#include "bytes/commonness.h"
#include "host/vstring.h"

namespace vstring::search {
namespace {

// The rarest bytes are looked for in a prefix only: it holds one as a rule, and a search in a
// short text should not wait for more.
constexpr std::size_t kProbed = 64;

// A candidate costs a restart of the scan, and an eighth of a scan of its bytes to be compared.
constexpr std::size_t kCandidateCost = 32;
constexpr std::size_t kComparisonShare = 8;

}  // namespace

void Finder::start(Bytes pattern, Bytes text) {
  pattern_ = pattern;
  text_ = text;
  at_ = pattern.empty() ? npos : 0;
  budget_ = Budget(kFreeBudget);
  rare_ = 0;
  is_two_way_ = false;
  if (pattern.empty()) return;

  const std::size_t probed = std::min(pattern.size(), kProbed);
  std::size_t rarest = 0;
  std::size_t second = probed - 1;
  for (std::size_t i = 1; i < probed; ++i) {
    if (kCommonness[pattern[i]] < kCommonness[pattern[rarest]]) {
      second = rarest;
      rarest = i;
    } else if (kCommonness[pattern[i]] < kCommonness[pattern[second]]) {
      second = i;
    }
  }
  rare_ = std::min(rarest, second);
  pair_ = {pattern[rare_], pattern[std::max(rarest, second)], std::max(rarest, second) - rare_};
  const std::size_t head = std::min(pattern.size(), sizeof head_);
  head_ = 0;
  std::memcpy(&head_, pattern.data(), head);
  mask_ = UINT64_MAX >> (64 - 8 * head);
}

// The next alignment before `end` that is worth a comparison, or npos.
std::size_t Finder::next_candidate(std::size_t end) const {
  if (pattern_.size() > 1) {
    const std::size_t found = find_pair(text_, at_ + rare_, end + rare_, pair_);
    return found == npos ? npos : found - rare_;
  }
  const void* const found = std::memchr(text_.data() + at_, pattern_[0], end - at_);
  if (found == nullptr) return npos;
  return static_cast<std::size_t>(static_cast<const Byte*>(found) - text_.data());
}

// Most candidates differ within the first eight bytes: a call of memcmp is saved.
bool Finder::occurs_at(std::size_t at) const {
  const Byte* const place = text_.data() + at;
  if (text_.size() - at >= sizeof head_) {
    if (((load8(place) ^ head_) & mask_) != 0) return false;
    if (pattern_.size() <= sizeof head_) return true;
  }
  return std::memcmp(place, pattern_.data(), pattern_.size()) == 0;
}

std::size_t Finder::next() {
  const std::size_t m = pattern_.size();
  while (!is_two_way_ && at_ <= text_.size() && text_.size() - at_ >= m) {
    if (budget_.is_used_up()) {
      two_way_.start(pattern_, text_, at_);
      is_two_way_ = true;
      break;
    }
    const std::size_t found = next_candidate(text_.size() - m + 1);
    if (found == npos) {
      at_ = npos;
      break;
    }
    budget_.earn(found - at_ + 1);
    at_ = found + 1;
    // One byte has no bad case: each candidate is an occurrence.
    if (m == 1) return found;
    budget_.spend(kCandidateCost + m / kComparisonShare);
    if (occurs_at(found)) return found;
  }
  return is_two_way_ ? two_way_.next() : npos;
}

std::size_t Finder::next_from(std::size_t from) {
  if (at_ < from) {
    budget_.earn(from - at_);
    at_ = from;
  }
  std::size_t found = next();
  while (found < from) found = next();
  return found;
}

std::size_t find(Bytes pattern, Bytes text) { return Finder(pattern, text).next(); }

Status find_all(Bytes pattern, Bytes text, HeldArray<std::size_t>& offsets) {
  Finder finder(pattern, text);
  for (std::size_t at = finder.next(); at != npos; at = finder.next()) {
    if (!offsets.push_back(at)) return Status::out_of_memory;
  }
  return Status::ok;
}

}  // namespace vstring::search

int64_t Search(const char* pattern, int64_t m, const char* text, int64_t n) {
  using vstring::Byte;
  if (m <= 0 || n < m) return 0;
  const std::size_t offset =
      vstring::search::find({reinterpret_cast<const Byte*>(pattern), static_cast<std::size_t>(m)},
                            {reinterpret_cast<const Byte*>(text), static_cast<std::size_t>(n)});
  return offset == vstring::npos ? 0 : static_cast<int64_t>(offset) + 1;
}
