#include "charclass/case_map.h"

#include <algorithm>
#include <array>

namespace vstring::charclass {
namespace {

// Whether the class table has all of first..last in the class, as it has unless the host changed
// it. The maps then need no table, and compile to vector code.
bool holds_all(Class wanted, Byte first, Byte last) {
  std::uint32_t common = wanted;
  for (std::size_t c = first; c <= last; ++c) common &= cclbm[c];
  return common != 0;
}

constexpr std::size_t kTooShortToAsk = 32;

consteval std::array<Byte, 256> table_of(Byte (*map)(Byte)) {
  std::array<Byte, 256> table{};
  for (std::size_t c = 0; c < table.size(); ++c) table[c] = map(static_cast<Byte>(c));
  return table;
}

constexpr std::array<Byte, 256> kIdentity = table_of([](Byte c) { return c; });

}  // namespace

void lowercase(Bytes text, MutableBytes out) {
  if (text.size() > kTooShortToAsk && holds_all(kUpper, 'A', 'Z')) {
    std::transform(text.begin(), text.end(), out.begin(), to_lower);
  } else {
    std::transform(text.begin(), text.end(), out.begin(), lowered);
  }
}

void uppercase(Bytes text, MutableBytes out) {
  if (text.size() > kTooShortToAsk && holds_all(kLower, 'a', 'z')) {
    std::transform(text.begin(), text.end(), out.begin(), to_upper);
  } else {
    std::transform(text.begin(), text.end(), out.begin(), raised);
  }
}

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
  std::array<Byte, 256> map = kIdentity;
  for (std::size_t k = from.size(); k > 0; --k) map[from[k - 1]] = to[k - 1];  // the first one wins
  std::transform(text.begin(), text.end(), out.begin(), [&map](Byte c) { return map[c]; });
}

}  // namespace vstring::charclass
