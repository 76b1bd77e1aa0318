#include "text/extraction/sentences.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "charclass/case_map.h"
#include "charclass/class_table.h"

namespace vstring::text {
namespace {

constexpr const char* kAbbreviations[] = {
    "mr", "mrs", "ms", "messrs", "dr", "prof", "rev", "gen", "col", "capt", "lt",  "sgt",
    "st", "mt",  "sr", "jr",     "vs", "cf",   "e.g", "i.e", "fig", "figs", "vol", "pp",
};
constexpr std::size_t kLongestAbbreviation = 6;

bool is_space(Byte c) { return charclass::is(c, charclass::kSpace); }
bool is_mark(Byte c) { return c == '.' || c == '!' || c == '?'; }

// How long the closing mark is that `text` ends with: a quotation mark, in UTF-8 too, or a bracket.
std::size_t closing_mark(Bytes text) {
  if (text.empty()) return 0;
  switch (text.back()) {
    case '"':
    case '\'':
    case ')':
    case ']':
    case '}':
      return 1;
    case 0x99:
    case 0x9d:
      return text.size() > 2 && text[text.size() - 3] == 0xe2 && text[text.size() - 2] == 0x80 ? 3
                                                                                               : 0;
    default:
      return 0;
  }
}

// Whether the full stop behind `text` belongs to an initial or an abbreviation.
bool is_abbreviated(Bytes text) {
  std::array<Byte, kLongestAbbreviation> letters;
  std::size_t n = 0;
  for (; n < text.size(); ++n) {
    const Byte c = text[text.size() - 1 - n];
    if (c != '.' && !charclass::is(c, charclass::kAlpha)) break;
    if (n == letters.size()) return false;
    letters[letters.size() - 1 - n] = charclass::to_lower(c);
  }
  if (n == 1 && charclass::is(text.back(), charclass::kUpper)) return true;
  const Bytes word = Bytes(letters).last(n);
  return std::any_of(std::begin(kAbbreviations), std::end(kAbbreviations),
                     [=](const char* abbreviation) { return equal(word, abbreviation); });
}

// Whether a sentence may end with `token`, which white space follows, and then `next`.
bool ends_sentence(Bytes token, Byte next) {
  for (std::size_t n = closing_mark(token); n != 0; n = closing_mark(token)) {
    token = token.first(token.size() - n);
  }
  std::size_t start = token.size();
  while (start > 0 && is_mark(token[start - 1])) --start;
  const Bytes marks = token.subspan(start);
  if (marks.empty() || charclass::is(next, charclass::kLower)) return false;
  return !(equal(marks, ".") && is_abbreviated(token.first(start)));
}

}  // namespace

Status find_sentences(Bytes text, HeldArray<Bytes>& sentences) {
  const std::size_t n = text.size();
  std::size_t i = 0;
  while (i < n && is_space(text[i])) ++i;
  for (std::size_t sentence = i; i < n;) {
    const std::size_t token = i;
    while (i < n && !is_space(text[i])) ++i;
    const std::size_t end = i;
    std::size_t newlines = 0;
    for (; i < n && is_space(text[i]); ++i) newlines += text[i] == '\n' ? 1 : 0;
    if (i < n && newlines < 2 && !ends_sentence(text.subspan(token, end - token), text[i]))
      continue;
    if (!sentences.push_back(text.subspan(sentence, end - sentence))) return Status::out_of_memory;
    sentence = i;
  }
  return Status::ok;
}

}  // namespace vstring::text
