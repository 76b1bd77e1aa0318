#include "charclass/unaccent.h"

#include <algorithm>

#include "bytes/byte_scan.h"
#include "bytes/copy.h"

namespace vstring::charclass {
namespace {

// What stands for each code point: a letter, a digit or colon for one of kPairs, a full stop for
// none. scripts/compare_encodings compares them with Python's unicodedata.
constexpr char kLatin[] =
    "AAAAAA0CEEEEIIIIDNOOOOO.OUUUUY24aaaaaa1ceeeeiiiidnooooo.ouuuuy3y"  // U+00C0
    "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi56JjKkqLlLlLlL"  // U+0100
    "lLlNnNnNn7NnOoOoOo89RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs"  // U+0140
    "................................Oo.............Uu..............."  // U+0180
    ".............AaIiOoUuUuUuUuUu.AaAa01..GgKkOoOo..j...Gg..NnAa01Oo"  // U+01C0
    "AaAaEeEeIiIiOoOoRrRrUuUuSsTt..Hh......AaEeOoOoOoOoYy............"  // U+0200
    "................";                                                 // U+0240

constexpr char kLatinAdditional[] =
    "AaBbBbBbCcDdDdDdDdDdEeEeEeEeEeFfGgHhHhHhHhHhIiIiKkKkKkLlLlLlLlMm"   // U+1E00
    "MmMmNnNnNnNnOoOoOoOoPpPpRrRrRrRrSsSsSsSsSsTtTtTtTtUuUuUuUuUuVvVv"   // U+1E40
    "WwWwWwWwWwXxXxYyZzZzZzhtwy.s..:.AaAaAaAaAaAaAaAaAaAaAaAaEeEeEeEe"   // U+1E80
    "EeEeEeEeIiIiOoOoOoOoOoOoOoOoOoOoOoOoUuUuUuUuUuUuUuYyYyYyYy......";  // U+1EC0

constexpr char kPairs[][3] = {"AE", "ae", "TH", "th", "ss", "IJ", "ij", "'n", "OE", "oe", "SS"};

constexpr std::size_t kLatinBase = 0xC0;
constexpr std::size_t kLatinAdditionalBase = 0x1E00;
static_assert(sizeof kLatin - 1 == 0x250 - kLatinBase);
static_assert(sizeof kLatinAdditional - 1 == 0x1F00 - kLatinAdditionalBase);

// What an entry of the tables says; empty for none.
Bytes base_at(const char* entry) {
  if (*entry == '.') return {};
  if (*entry < '0' || *entry > ':') return {reinterpret_cast<const Byte*>(entry), 1};
  return bytes_of(kPairs[*entry - '0']);
}

Bytes base_of(std::size_t code) {
  if (code >= kLatinAdditionalBase) {
    const std::size_t i = code - kLatinAdditionalBase;
    return i < sizeof kLatinAdditional - 1 ? base_at(kLatinAdditional + i) : Bytes();
  }
  const std::size_t i = code - kLatinBase;
  return code >= kLatinBase && i < sizeof kLatin - 1 ? base_at(kLatin + i) : Bytes();
}

bool is_combining_mark(std::size_t code) { return code >= 0x300 && code <= 0x36F; }

bool is_continuation(Byte c) { return (c & 0xC0) == 0x80; }

bool is_ascii_letter(Byte c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; }

// The code point whose UTF-8 form of two or three bytes begins a text, and how long that is.
struct CodePoint {
  std::size_t value, length;
};
constexpr CodePoint kNone = {0, 1};

CodePoint first_code_point(Bytes text) {
  if (text.size() < 2 || !is_continuation(text[1])) return kNone;
  const Byte lead = text[0];
  if (lead >= 0xC2 && lead <= 0xDF) return {(lead & 0x1FU) << 6 | (text[1] & 0x3FU), 2};
  if (text.size() < 3 || lead != 0xE1 || !is_continuation(text[2])) return kNone;
  return {(lead & 0xFU) << 12 | (text[1] & 0x3FU) << 6 | (text[2] & 0x3FU), 3};
}

// The bytes with which the forms of letters and marks begin.
constexpr Byte kLeads[] = {0xC3, 0xC4, 0xC5, 0xC6, 0xC7, 0xC8, 0xC9, 0xCC, 0xCD, 0xE1};

}  // namespace

std::size_t unaccent_utf8(Bytes text, MutableBytes out) {
  const ByteScan leads{ByteSet(kLeads)};
  MutableBytes rest = out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t next = leads.find(text, at);
    rest = copy_part(rest, text, at, next - at);
    if (next == text.size()) break;
    const auto [code, length] = first_code_point(text.subspan(next));
    const Bytes base = base_of(code);
    const std::size_t written = out.size() - rest.size();
    const bool is_dropped =
        is_combining_mark(code) && written > 0 && is_ascii_letter(out[written - 1]);
    if (!base.empty()) {
      rest = copy_into(rest, base);
    } else if (!is_dropped) {
      rest = copy_into(rest, text.subspan(next, length));
    }
    at = next + length;
  }
  return out.size() - rest.size();
}

std::size_t unaccent_latin1(Bytes text, MutableBytes out) {
  std::size_t n = 0;
  for (const Byte c : text) {
    const Bytes base = base_of(c);
    if (base.empty()) out[n++] = c;
    for (const Byte letter : base) out[n++] = letter;
  }
  return n;
}

}  // namespace vstring::charclass
