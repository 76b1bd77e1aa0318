#include "text/layout/ends.h"

#include "bytes/byte_set.h"
#include "charclass/class_table.h"
#include "text/layout/fill.h"

namespace vstring::text {
namespace {

template <typename Test>
Bytes trim(Bytes text, Side side, Test is_trimmed) {
  std::size_t first = 0;
  std::size_t end = text.size();
  if (side != Side::right) {
    while (first < end && is_trimmed(text[first])) ++first;
  }
  if (side != Side::left) {
    while (end > first && is_trimmed(text[end - 1])) --end;
  }
  return text.subspan(first, end - first);
}

}  // namespace

void pad(Bytes text, Side side, Byte fill, MutableBytes out) {
  const std::size_t copies = out.size() - text.size();
  const std::size_t on_left = side == Side::left ? copies : side == Side::both ? copies / 2 : 0;
  Fill(fill, out.first(on_left));
  Fill(fill, copy_into(out.subspan(on_left), text));
}

Bytes trim_space(Bytes text, Side side) {
  return trim(text, side, [](Byte c) { return charclass::is(c, charclass::kSpace); });
}

Bytes trim_chars(Bytes text, Bytes chars, Side side) {
  const ByteSet trimmed(chars);
  return trim(text, side, [&](Byte c) { return trimmed.has(c); });
}

}  // namespace vstring::text
