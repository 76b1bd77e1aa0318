// The segments of a wildcard pattern, between two stars: elements that take one byte each.
#pragma once
#include <cstddef>

#include "bytes/byte_set.h"
#include "bytes/bytes.h"

namespace vstring::search {

struct Segment {
  Bytes pattern;
  std::size_t elements;  // bytes of text that it takes
  std::size_t literals;  // elements that stand for themselves
  bool is_terminated;    // false: it holds a set without an end

  bool is_literal() const { return literals == pattern.size(); }
};

// The segment at the start of a pattern.
Segment read_segment(Bytes pattern);

// Whether the segment matches at the start of `text`, which is long enough.
bool matches_at(const Segment& segment, Bytes text);

// Offset behind the element at `at`, which is no star; npos for an unterminated set.
std::size_t behind_element(Bytes pattern, std::size_t at);

inline bool is_literal(Byte c) { return c != '?' && c != '\\' && c != '['; }

// The bytes that the element at `at` takes.
ByteSet members_of(Bytes pattern, std::size_t at);

}  // namespace vstring::search
