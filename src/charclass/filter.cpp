#include "charclass/filter.h"

#include <algorithm>

#include "bytes/byte_set.h"

namespace vstring::charclass {
namespace {

// Code 0, the terminator of every text, counts as a member.
ByteSet alphabet_of(Bytes members) {
  ByteSet set(members);
  set.add(0);
  return set;
}

constexpr ByteSet lower_letters() {
  ByteSet set;
  set.add(0);
  for (Byte c = 'a'; c <= 'z'; ++c) set.add(c);
  return set;
}

constinit ByteSet filter_alphabet = lower_letters();
CharTest most_recent = nullptr;

struct Name {
  const char* text;
  CharTest test;
};

// Wider in places and narrower in others than the names of CharClassNameToTest: scripts rely on
// either set as it is.
constexpr Name kNames[] = {
    {"alpha", ccl_isalpha},   {"letters", ccl_isalpha},
    {"alnum", ccl_isalnum},   {"alphanumeric", ccl_isalnum},
    {"ascii", ccl_isascii},   {"ASCII", ccl_isascii},
    {"binary", ccl_isbdigit}, {"bits", ccl_isbdigit},
    {"cntrl", ccl_iscntrl},   {"control", ccl_iscntrl},
    {"digit", ccl_isdigit},   {"numeric", ccl_isdigit},
    {"graph", ccl_isgraph},   {"graphic", ccl_isgraph},
    {"xdigit", ccl_isxdigit}, {"hex", ccl_isxdigit},
    {"lower", ccl_islower},   {"lowercase", ccl_islower},
    {"octal", ccl_isodigit},  {"odigit", ccl_isodigit},
    {"print", ccl_isprint},   {"printable", ccl_isprint},
    {"punct", ccl_ispunct},   {"punctuation", ccl_ispunct},
    {"space", ccl_isspace},   {"whitespace", ccl_isspace},
    {"upper", ccl_isupper},   {"uppercase", ccl_isupper},
    {"ident", ccl_isident},   {"identifier", ccl_isident},
    {"ident1", ccl_isident1}, {"vowel", ccl_isvowel},
    {"dna", ccl_isdna},       {"DNA", ccl_isdna},
};

}  // namespace

void set_filter_alphabet(Bytes alphabet) {
  filter_alphabet = alphabet_of(alphabet.first(std::min(alphabet.size(), kAlphabetLimit)));
}

Result<CharTest> filter_named(Bytes name) {
  if (equal(name, "last")) return most_recent;
  for (const auto& [text, test] : kNames) {
    if (equal(name, text)) return most_recent = test;
  }
  return Status::refused;
}

void forget_filters() {
  filter_alphabet = lower_letters();
  most_recent = nullptr;
}

}  // namespace vstring::charclass

int AlphabetFilter(int code) {
  if (code < 0 || code > 255) return 0;
  return vstring::charclass::filter_alphabet.has(static_cast<vstring::Byte>(code)) ? 1 : 0;
}

void SetFilterAlphabet(const char* text) {
  vstring::charclass::set_filter_alphabet(vstring::bytes_of(text));
}
