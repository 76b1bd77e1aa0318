#include "charclass/case_map.h"

#include <algorithm>
#include <array>

#include "bytes/byte_map.h"

namespace vstring::charclass {
namespace {

// As the class table is now: the host may have changed it.
template <Byte (*map)(Byte)>
void change_case(Bytes text, MutableBytes out, Byte first, Byte last) {
  constexpr std::size_t kTooShortForMap = 32;
  if (text.size() <= kTooShortForMap) {
    std::transform(text.begin(), text.end(), out.begin(), map);
    return;
  }
  ByteMap changed;
  changed.set_all(first, last, map);
  changed.apply(text, out);
}

consteval std::array<Byte, 256> table_of(Byte (*map)(Byte)) {
  std::array<Byte, 256> table{};
  for (std::size_t c = 0; c < table.size(); ++c) table[c] = map(static_cast<Byte>(c));
  return table;
}

}  // namespace

void lowercase(Bytes text, MutableBytes out) { change_case<lowered>(text, out, 'A', 'Z'); }
void uppercase(Bytes text, MutableBytes out) { change_case<raised>(text, out, 'a', 'z'); }

void capitalise(Bytes text, MutableBytes out) {
  // Tables instead of branches, which words in running text make unpredictable.
  static constexpr std::array<Byte, 256> kMaps[] = {table_of(to_upper), table_of(to_lower)};
  std::size_t inside = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Byte c = text[i];
    const std::size_t in_word = is(c, kAlnum) ? 1 : 0;
    const auto change = static_cast<Byte>(c ^ kMaps[inside][c]);
    out[i] = static_cast<Byte>(c ^ (in_word * change));
    inside = in_word;
  }
}

void translate(Bytes from, Bytes to, Bytes text, MutableBytes out) {
  ByteMap map;
  for (std::size_t k = from.size(); k > 0; --k) map.set(from[k - 1], to[k - 1]);  // first one wins
  map.apply(text, out);
}

}  // namespace vstring::charclass
