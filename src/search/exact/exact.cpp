#include "search/exact/exact.h"

#include <bit>
#include <cstring>

#include "bytes/common.h"
#include "host/vstring.h"

namespace vstring::search {
namespace {

// Comparisons may take some bytes for each byte of text that is passed: more than that only
// periodic texts ask for, and two-way matching takes no more.
constexpr std::size_t kComparedPerByte = 4;
constexpr std::size_t kFreeComparisons = 4096;

// So many places of a pattern's rarest byte are tried before anything is prepared.
constexpr std::size_t kFirstTries = 2;

// In a longer text it pays to look for rare bytes in more of a long pattern.
constexpr std::size_t kShortText = 1024;

// From one place of the pattern's byte `i` to the next, as far as alignment `end`, but to no more
// than some places. Offset of the first occurrence, or npos, `at` then being the first alignment
// that has not been tried.
std::size_t find_by_byte(Bytes pattern, std::size_t i, Bytes text, std::size_t& at, std::size_t end,
                         std::size_t tries) {
  const Byte* const under = text.data() + i;
  for (; at < end && tries > 0; ++at, --tries) {
    const void* const found = std::memchr(under + at, pattern[i], end - at);
    if (found == nullptr) {
      at = end;
      break;
    }
    at = static_cast<std::size_t>(static_cast<const Byte*>(found) - under);
    const std::size_t m = pattern.size();
    if (m == 1 || std::memcmp(text.data() + at, pattern.data(), m) == 0) return at;
  }
  return npos;
}

// The first occurrence of a needle that is neither empty nor longer than the text. A finder is not
// worth starting for what the first places of the rarest byte tell, nor for few alignments.
std::size_t find_needle(const Needle& needle, Bytes text) {
  const Bytes pattern = needle.pattern();
  const std::size_t end = text.size() - pattern.size() + 1;
  const std::size_t tries = end < kProbeBlock ? SIZE_MAX : kFirstTries;
  std::size_t at = 0;
  const std::size_t found = find_by_byte(pattern, needle.probes().offsets[0], text, at, end, tries);
  return found != npos || at == end ? found : Finder(needle, text).next_from(at);
}

}  // namespace

void Finder::start_text(Bytes text) {
  const std::size_t m = needle_.size();
  text_ = text;
  end_ = m == 0 || m > text.size() ? 0 : text.size() - m + 1;
  at_ = base_ = 0;
  hits_ = 0;
  ahead_ = kLookAhead;
  budget_ = Budget(kFreeComparisons);
  is_two_way_ = false;
}

// Goes on to the next block in which all probes stand somewhere.
bool Finder::scan_on() {
  if (at_ >= end_) return false;
  const std::size_t before = at_;
  base_ = at_;
  hits_ = find_probes(text_, base_, end_, needle_.probes(), ahead_);
  at_ = hits_ != 0 ? base_ + kProbeBlock : end_;
  budget_.earn(kComparedPerByte * (at_ - before));
  return hits_ != 0;
}

// Whether the pattern stands where its probes do.
bool Finder::occurs_at(std::size_t at) {
  if (needle_.is_all_probes()) return true;
  const std::size_t m = needle_.size();
  const Byte* const pattern = needle_.pattern().data();
  const Byte* const place = text_.data() + at;
  if (needle_.is_two_words()) {
    const std::size_t last = m - sizeof(std::uint64_t);
    return ((load8(place) ^ load8(pattern)) | (load8(place + last) ^ load8(pattern + last))) == 0;
  }
  const std::size_t agreeing = common_prefix(needle_.pattern(), {place, m});
  budget_.spend(agreeing);
  if (budget_.is_used_up()) give_up(at + 1);
  return agreeing == m;
}

// Leaves the alignments from `from` on to the two-way matcher.
void Finder::give_up(std::size_t from) {
  two_way_.start(needle_.pattern(), text_, from);
  is_two_way_ = true;
  hits_ = 0;
  at_ = end_;
}

std::size_t Finder::next() {
  do {
    while (hits_ != 0) {
      const std::size_t at = base_ + static_cast<std::size_t>(std::countr_zero(hits_));
      hits_ &= hits_ - 1;
      if (occurs_at(at)) return at;
    }
  } while (scan_on());
  return is_two_way_ ? two_way_.next() : npos;
}

std::size_t Finder::next_from(std::size_t from) {
  if (from >= at_) {
    at_ = from;
    hits_ = 0;
  } else if (hits_ != 0 && from > base_) {
    hits_ = hits_ >> (from - base_) << (from - base_);
  }
  std::size_t found = next();
  while (found < from) found = next();
  return found;
}

Status Finder::collect(HeldArray<std::size_t>& offsets) {
  do {
    if (!offsets.reserve_more(kProbeBlock)) return Status::out_of_memory;
    for (; hits_ != 0; hits_ &= hits_ - 1) {
      const std::size_t at = base_ + static_cast<std::size_t>(std::countr_zero(hits_));
      if (occurs_at(at)) offsets.push_within(at);
    }
  } while (scan_on());
  if (!is_two_way_) return Status::ok;
  for (std::size_t at = two_way_.next(); at != npos; at = two_way_.next()) {
    if (!offsets.push_back(at)) return Status::out_of_memory;
  }
  return Status::ok;
}

std::size_t find(Bytes pattern, Bytes text) {
  const std::size_t m = pattern.size();
  if (m == 0 || m > text.size()) return npos;
  // A single byte needs no needle, and few alignments are not worth one.
  const std::size_t end = text.size() - m + 1;
  std::size_t at = 0;
  if (m == 1 || end < kProbeBlock) return find_by_byte(pattern, 0, text, at, end, SIZE_MAX);
  return find_needle(Needle(pattern, text.size()), text);
}

Status find_all(Bytes pattern, Bytes text, HeldArray<std::size_t>& offsets) {
  return Finder(pattern, text).collect(offsets);
}

std::size_t find(const Needle& needle, Bytes text) {
  if (needle.size() == 0 || needle.size() > text.size()) return npos;
  if (text.size() > kShortText) return find(needle.pattern(), text);
  return find_needle(needle, text);
}

Status find_all(const Needle& needle, Bytes text, HeldArray<std::size_t>& offsets) {
  if (text.size() > kShortText) return find_all(needle.pattern(), text, offsets);
  return Finder(needle, text).collect(offsets);
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
