#include "charclass/case_map.h"

#include <algorithm>

#include "bytes/byte_map.h"
#include "bytes/capitalise.h"
#include "charclass/predicates.h"

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

}  // namespace

void lowercase(Bytes text, MutableBytes out) { change_case<lowered>(text, out, 'A', 'Z'); }
void uppercase(Bytes text, MutableBytes out) { change_case<raised>(text, out, 'a', 'z'); }

void capitalise(Bytes text, MutableBytes out) {
  // Below this, asking the class table for every byte costs less than asking for all of them.
  constexpr std::size_t kWorthScan = 512;
  if (text.size() >= kWorthScan) return capitalise_words(scan_of(kAlnum, 255), text, out);
  bool inside = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Byte c = text[i];
    const bool in_word = is(c, kAlnum);
    out[i] = !in_word ? c : inside ? to_lower(c) : to_upper(c);
    inside = in_word;
  }
}

void translate(Bytes from, Bytes to, Bytes text, MutableBytes out) {
  ByteMap map;
  for (std::size_t k = from.size(); k > 0; --k) map.set(from[k - 1], to[k - 1]);  // first one wins
  map.apply(text, out);
}

}  // namespace vstring::charclass
