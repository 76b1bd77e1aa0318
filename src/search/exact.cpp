#include "search/exact.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace vstring::search {
namespace {

// How common a byte is in ordinary text: letters by their frequency in English prose, all that is
// not listed counting as rare.
constexpr std::array<Byte, 256> kCommonness = [] {
  constexpr const char* kCommonFirst =
      " etaoinsrhldcumfpgwybvk,.\nTSAIMCBPHWDRELFNGOxjqzUVJKYXQZ'\"-()0123456789;:\t";
  std::array<Byte, 256> commonness = {};
  Byte value = 255;
  for (const char* c = kCommonFirst; *c != '\0'; ++c) {
    commonness[static_cast<Byte>(*c)] = value--;
  }
  return commonness;
}();

// The rarest bytes are looked for in a prefix only: it holds one as a rule, and a search in a
// short text should not wait for more.
constexpr std::size_t kProbed = 64;

// A candidate costs a restart of memchr, and an eighth of a scan of its bytes when it is compared.
constexpr std::size_t kCandidateCost = 16;
constexpr std::size_t kComparisonShare = 8;
constexpr std::size_t kFreeBudget = 1024;

}  // namespace

void Finder::start(Bytes pattern, Bytes text) {
  pattern_ = pattern;
  text_ = text;
  at_ = pattern.empty() ? npos : 0;
  spent_ = 0;
  rare_ = 0;
  is_two_way_ = false;
  if (pattern.empty()) return;

  const std::size_t probed = std::min(pattern.size(), kProbed);
  for (std::size_t i = 1; i < probed; ++i) {
    if (kCommonness[pattern[i]] < kCommonness[pattern[rare_]]) rare_ = i;
  }
  // One byte has no bad case: whatever memchr stops at is an occurrence.
  candidate_cost_ = pattern.size() == 1 ? 0 : kCandidateCost;
  const std::size_t last = pattern.size() - 1;
  guard_ = rare_ == last ? 0 : last;
}

bool Finder::has_spent_budget() const { return spent_ > kFreeBudget + at_; }

std::size_t Finder::next() {
  const std::size_t m = pattern_.size();
  while (!is_two_way_ && at_ <= text_.size() && text_.size() - at_ >= m) {
    if (has_spent_budget()) {
      two_way_.start(pattern_, text_, at_);
      is_two_way_ = true;
      break;
    }
    const std::size_t alignments = text_.size() - at_ - m + 1;
    const void* const hit = std::memchr(text_.data() + at_ + rare_, pattern_[rare_], alignments);
    if (hit == nullptr) {
      at_ = npos;
      break;
    }
    const Byte* const window = static_cast<const Byte*>(hit) - rare_;
    at_ = static_cast<std::size_t>(window - text_.data()) + 1;
    spent_ += candidate_cost_;
    if (window[guard_] != pattern_[guard_]) continue;
    spent_ += m / kComparisonShare;
    if (std::memcmp(window, pattern_.data(), m) == 0) return at_ - 1;
  }
  return is_two_way_ ? two_way_.next() : npos;
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
