#include "search/wildcard/wildcard.h"

#include <algorithm>
#include <cstdint>

#include "runtime/memory.h"
#include "search/exact/exact.h"
#include "search/wildcard/places.h"
#include "search/wildcard/segment.h"

namespace vstring::search {
namespace {

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
      std::uint64_t* const row = masks_.data() + i / kWordBits;
      members_of(segment.pattern, at).for_each([&](Byte c) {
        row[c * words_] |= std::uint64_t{1} << (i % kWordBits);
      });
      at = behind_element(segment.pattern, at);
    }
    return Status::ok;
  }

  std::size_t words() const { return words_; }
  const std::uint64_t* of(Byte c) const { return masks_.data() + c * words_; }

 private:
  Buffer<std::uint64_t> masks_;
  std::size_t words_ = 0;
};

// Runs the automaton whose bit i is set when elements 0..i match the bytes up to here.
std::size_t find_in_one_word(const Segment& segment, const ElementMasks& masks, Bytes text) {
  // There is an element.
  // NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult)
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

Result<std::size_t> find_by_automaton(const Segment& segment, Bytes text) {
  ElementMasks masks;
  if (masks.prepare(segment) != Status::ok) return Status::out_of_memory;
  if (masks.words() == 1) return find_in_one_word(segment, masks, text);
  return find_in_words(segment, masks, text);
}

// Offset of the leftmost match of a non-empty segment, or npos.
Result<std::size_t> find_segment(const Segment& segment, Bytes text) {
  // Below this, preparing anything costs more than trying every place.
  constexpr std::size_t kWorthPreparing = 1024;
  // What places to try may lose, in bytes of text passed over, before the automaton takes over.
  constexpr std::size_t kFreeTries = 1024;
  if (segment.is_literal()) return find(segment.pattern, text);
  if (text.size() <= kWorthPreparing / segment.pattern.size()) {
    return find_directly(segment, text);
  }
  Places places(segment, text);
  Budget budget(kFreeTries);
  std::size_t seen = 0;
  for (std::size_t at = places.next(); at != npos; at = places.next()) {
    if (matches_at(segment, text.subspan(at))) return at;
    budget.earn(at - seen);
    budget.spend(segment.pattern.size());
    seen = at;
    if (!budget.is_used_up()) continue;
    const Result<std::size_t> found = find_by_automaton(segment, text.subspan(at));
    if (!found.ok() || *found == npos) return found;
    return at + *found;
  }
  return npos;
}

}  // namespace

Result<bool> wildcard_match(Bytes pattern, Bytes text) {
  const Segment first = read_segment(pattern);
  if (!first.is_terminated || first.elements > text.size()) return false;
  if (first.elements > 0 && !matches_at(first, text)) return false;
  text = text.subspan(first.elements);
  pattern = pattern.subspan(first.pattern.size());
  if (pattern.empty()) return text.empty();

  for (;;) {
    while (!pattern.empty() && pattern[0] == '*') pattern = pattern.subspan(1);
    if (pattern.empty()) return true;
    const Segment segment = read_segment(pattern);
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
