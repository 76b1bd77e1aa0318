#include "search/wildcard/wildcard.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstring>

#include "runtime/memory.h"
#include "search/exact/exact.h"

namespace vstring::search {
namespace {

// A segment of a pattern between two stars.
struct Segment {
  Bytes pattern;
  std::size_t elements;  // bytes of text that it takes
  bool is_literal;
  bool is_terminated;  // false: it holds a set without an end
};

// The parts of the set whose "[" stands at `at`.
struct SetSyntax {
  bool is_negated;
  std::size_t first;  // offset of its first byte
  std::size_t close;  // offset of its "]"; npos when there is none
};

SetSyntax read_set(Bytes pattern, std::size_t at) {
  const bool is_negated = at + 1 < pattern.size() && pattern[at + 1] == '^';
  const std::size_t first = at + (is_negated ? 2 : 1);
  if (first >= pattern.size()) return {is_negated, first, npos};
  const Bytes rest = pattern.subspan(first + 1);
  const auto close = std::find(rest.begin(), rest.end(), ']');
  if (close == rest.end()) return {is_negated, first, npos};
  return {is_negated, first, first + 1 + static_cast<std::size_t>(close - rest.begin())};
}

// Offset behind the element at `at`, which is no star; npos for an unterminated set.
std::size_t behind_element(Bytes pattern, std::size_t at) {
  if (pattern[at] == '\\') return std::min(at + 2, pattern.size());
  if (pattern[at] != '[') return at + 1;
  const std::size_t close = read_set(pattern, at).close;
  return close == npos ? npos : close + 1;
}

Segment read_segment(Bytes pattern) {
  Segment segment = {pattern, 0, true, true};
  std::size_t at = 0;
  while (at < pattern.size() && pattern[at] != '*') {
    const Byte c = pattern[at];
    if (c == '?' || c == '\\' || c == '[') segment.is_literal = false;
    at = behind_element(pattern, at);
    if (at == npos) {
      segment.is_terminated = false;
      return segment;
    }
    ++segment.elements;
  }
  segment.pattern = pattern.first(at);
  return segment;
}

int code(Byte c) { return static_cast<signed char>(c); }

// Calls visit(low, high) for each range of codes in the set, negation apart; reversed ranges have
// been taken apart.
template <typename Visit>
void visit_members(Bytes pattern, const SetSyntax& set, Visit visit) {
  int last = code(pattern[set.first]);
  visit(last, last);
  for (std::size_t i = set.first + 1; i < set.close; ++i) {
    int c = code(pattern[i]);
    if (c == '-' && i + 1 == set.close) {
      visit(last, SCHAR_MAX);
    } else if (c == '-') {
      c = code(pattern[++i]);
      if (last < c) {
        visit(last, c);
      } else {
        visit(c, c);
      }
    } else {
      visit(c, c);
    }
    last = c;
  }
}

bool takes(Bytes pattern, std::size_t at, Byte c) {
  if (pattern[at] == '?' || pattern[at] == '\\') return true;
  if (pattern[at] != '[') return pattern[at] == c;
  const SetSyntax set = read_set(pattern, at);
  bool is_member = false;
  visit_members(pattern, set,
                [&](int low, int high) { is_member |= low <= code(c) && code(c) <= high; });
  return is_member != set.is_negated;
}

// Whether the segment matches at the start of `text`, which is long enough.
bool matches_at(const Segment& segment, Bytes text) {
  if (segment.is_literal) return equal(segment.pattern, text.first(segment.elements));
  std::size_t at = 0;
  for (std::size_t i = 0; i < segment.elements; ++i) {
    if (!takes(segment.pattern, at, text[i])) return false;
    at = behind_element(segment.pattern, at);
  }
  return true;
}

std::size_t find_directly(const Segment& segment, Bytes text) {
  for (std::size_t i = 0; i + segment.elements <= text.size(); ++i) {
    if (matches_at(segment, text.subspan(i))) return i;
  }
  return npos;
}

constexpr std::size_t kWordBits = 64;

// For each byte, which elements take it: bit i % 64 of word i / 64 stands for element i.
class ElementMasks {
 public:
  Status prepare(const Segment& segment) {
    words_ = (segment.elements + kWordBits - 1) / kWordBits;
    if (!masks_.resize_zeroed(256 * words_)) return Status::out_of_memory;
    std::size_t at = 0;
    for (std::size_t i = 0; i < segment.elements; ++i) {
      add(segment.pattern, at, i);
      at = behind_element(segment.pattern, at);
    }
    return Status::ok;
  }

  std::size_t words() const { return words_; }
  const std::uint64_t* of(Byte c) const { return masks_.data() + c * words_; }

 private:
  void add(Bytes pattern, std::size_t at, std::size_t i) {
    const std::uint64_t bit = std::uint64_t{1} << (i % kWordBits);
    std::uint64_t* const row = masks_.data() + i / kWordBits;
    const Byte c = pattern[at];
    if (c != '?' && c != '\\' && c != '[') {
      row[c * words_] |= bit;
      return;
    }
    const std::array<bool, 256> members = c == '[' ? members_of(pattern, at) : every_byte();
    for (std::size_t b = 0; b < 256; ++b) {
      if (members[b]) row[b * words_] |= bit;
    }
  }

  static std::array<bool, 256> every_byte() {
    std::array<bool, 256> all;
    all.fill(true);
    return all;
  }

  // Ranges are noted by their ends and summed up once, so that a long set costs no more than its
  // length.
  static std::array<bool, 256> members_of(Bytes pattern, std::size_t at) {
    std::array<std::int64_t, 257> change = {};
    const SetSyntax set = read_set(pattern, at);
    visit_members(pattern, set, [&](int low, int high) {
      ++change[static_cast<std::size_t>(low - SCHAR_MIN)];
      --change[static_cast<std::size_t>(high - SCHAR_MIN) + 1];
    });
    std::array<bool, 256> members;
    std::int64_t covering = 0;
    for (int c = SCHAR_MIN; c <= SCHAR_MAX; ++c) {
      covering += change[static_cast<std::size_t>(c - SCHAR_MIN)];
      members[static_cast<Byte>(c)] = (covering > 0) != set.is_negated;
    }
    return members;
  }

  Buffer<std::uint64_t> masks_;
  std::size_t words_ = 0;
};

// Runs the automaton whose bit i is set when elements 0..i match the bytes up to here.
std::size_t find_in_one_word(const Segment& segment, const ElementMasks& masks, Bytes text) {
  const std::uint64_t accept = std::uint64_t{1} << (segment.elements - 1);
  std::uint64_t state = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    state = ((state << 1) | 1) & *masks.of(text[i]);
    if ((state & accept) != 0) return i + 1 - segment.elements;
  }
  return npos;
}

Result<std::size_t> find_in_words(const Segment& segment, const ElementMasks& masks, Bytes text) {
  const std::size_t n = masks.words();
  const std::uint64_t accept = std::uint64_t{1} << ((segment.elements - 1) % kWordBits);
  Buffer<std::uint64_t> state;
  if (!state.resize_zeroed(n)) return Status::out_of_memory;
  std::size_t active = 1;  // the words from here on are zero
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::uint64_t* const mask = masks.of(text[i]);
    active = std::min(active + 1, n);
    for (std::size_t w = active - 1; w > 0; --w) {
      state[w] = ((state[w] << 1) | (state[w - 1] >> (kWordBits - 1))) & mask[w];
    }
    state[0] = ((state[0] << 1) | 1) & mask[0];
    if ((state[n - 1] & accept) != 0) return i + 1 - segment.elements;
    while (active > 1 && state[active - 1] == 0) --active;
  }
  return npos;
}

// Offset of the leftmost match of a non-empty segment, or npos.
Result<std::size_t> find_segment(const Segment& segment, Bytes text) {
  // Below this, preparing masks costs more than trying every place.
  constexpr std::size_t kWorthPreparing = 1024;
  if (segment.is_literal) return find(segment.pattern, text);
  if (text.size() <= kWorthPreparing / segment.pattern.size()) {
    return find_directly(segment, text);
  }
  ElementMasks masks;
  if (masks.prepare(segment) != Status::ok) return Status::out_of_memory;
  if (masks.words() == 1) return find_in_one_word(segment, masks, text);
  return find_in_words(segment, masks, text);
}

}  // namespace

Result<bool> wildcard_match(Bytes pattern, Bytes text) {
  Segment segment = read_segment(pattern);
  if (!segment.is_terminated || segment.elements > text.size()) return false;
  if (!matches_at(segment, text)) return false;
  text = text.subspan(segment.elements);
  pattern = pattern.subspan(segment.pattern.size());
  if (pattern.empty()) return text.empty();

  for (;;) {
    while (!pattern.empty() && pattern[0] == '*') pattern = pattern.subspan(1);
    if (pattern.empty()) return true;
    segment = read_segment(pattern);
    if (!segment.is_terminated || segment.elements > text.size()) return false;
    pattern = pattern.subspan(segment.pattern.size());
    if (pattern.empty()) return matches_at(segment, text.last(segment.elements));
    const Result<std::size_t> at = find_segment(segment, text);
    if (!at.ok()) return at.status();
    if (*at == npos) return false;
    text = text.subspan(*at + segment.elements);
  }
}

}  // namespace vstring::search
