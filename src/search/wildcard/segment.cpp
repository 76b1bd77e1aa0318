#include "search/wildcard/segment.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace vstring::search {
namespace {

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

}  // namespace

std::size_t behind_element(Bytes pattern, std::size_t at) {
  if (pattern[at] == '\\') return std::min(at + 2, pattern.size());
  if (pattern[at] != '[') return at + 1;
  const std::size_t close = read_set(pattern, at).close;
  return close == npos ? npos : close + 1;
}

Segment read_segment(Bytes pattern) {
  Segment segment = {pattern, 0, 0, true};
  std::size_t at = 0;
  while (at < pattern.size() && pattern[at] != '*') {
    segment.literals += is_literal(pattern[at]) ? 1 : 0;
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

bool matches_at(const Segment& segment, Bytes text) {
  if (segment.is_literal()) return equal(segment.pattern, text.first(segment.elements));
  std::size_t at = 0;
  for (std::size_t i = 0; i < segment.elements; ++i) {
    if (!takes(segment.pattern, at, text[i])) return false;
    at = behind_element(segment.pattern, at);
  }
  return true;
}

// Ranges are noted by their ends and summed up once, so that a long set costs no more than its
// length.
ByteSet members_of(Bytes pattern, std::size_t at) {
  ByteSet members;
  if (is_literal(pattern[at])) {
    members.add(pattern[at]);
    return members;
  }
  if (pattern[at] != '[') {
    members.complement();
    return members;
  }
  std::int64_t change[257] = {};
  const SetSyntax set = read_set(pattern, at);
  visit_members(pattern, set, [&](int low, int high) {
    ++change[low - SCHAR_MIN];
    --change[high - SCHAR_MIN + 1];
  });
  std::int64_t covering = 0;
  for (int c = SCHAR_MIN; c <= SCHAR_MAX; ++c) {
    covering += change[c - SCHAR_MIN];
    if ((covering > 0) != set.is_negated) members.add(static_cast<Byte>(c));
  }
  return members;
}

}  // namespace vstring::search
