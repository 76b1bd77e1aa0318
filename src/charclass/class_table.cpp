#include "charclass/class_table.h"

#include <cstring>

namespace vstring::charclass {
namespace {

struct Membership {
  Class bit;
  const char* members;  // bytes, "a-z" being an inclusive range; a "-" at the start is a byte
};

// The "C" locale's classes, and the computer algebraist's: "?" may stand inside an identifier but
// not begin one, "%" the other way round; dna knows the four upper-case letters alone.
constexpr Membership kMembers[] = {
    {kLower, "a-z"},          {kUpper, "A-Z"},
    {kAlpha, "A-Za-z"},       {kDigit, "0-9"},
    {kBinaryDigit, "01"},     {kOctalDigit, "0-7"},
    {kHexDigit, "0-9A-Fa-f"}, {kAlnum, "0-9A-Za-z"},
    {kGraph, "!-~"},          {kPrint, " -~"},
    {kPunct, "!-/:-@[-`{-~"}, {kControl, "\1-\37\177"},  // and code 0, below
    {kVowel, "AEIOUaeiou"},   {kIdent, "A-Za-z0-9_?"},
    {kIdent1, "A-Za-z_%"},    {kDna, "ACGT"},
    {kSpace, "\t-\r "},       {kAscii, "\1-\177"},  // and code 0, below
};

// Classes of one code.
consteval std::uint32_t mask(int code) {
  std::uint32_t classes = code == 0 ? kControl | kAscii : 0;
  for (const auto& [bit, members] : kMembers) {
    for (const char* p = members; *p != '\0'; ++p) {
      const bool is_range = p[1] == '-' && p[2] != '\0';
      const char last = is_range ? p[2] : p[0];
      if (p[0] <= code && code <= last) classes |= bit;
      if (is_range) p += 2;
    }
  }
  return classes;
}

// What a user may call a class.
struct Name {
  const char* text;
  CharTest test;
};

constexpr Name kNames[] = {
    {"alpha", ccl_isalpha},        {"alphabetic", ccl_isalpha},   {"alnum", ccl_isalnum},
    {"alphanumeric", ccl_isalnum}, {"ascii", ccl_isascii},        {"bdigit", ccl_isbdigit},
    {"binary", ccl_isbdigit},      {"cntrl", ccl_iscntrl},        {"control", ccl_iscntrl},
    {"digit", ccl_isdigit},        {"digits", ccl_isdigit},       {"dna", ccl_isdna},
    {"graph", ccl_isgraph},        {"graphic", ccl_isgraph},      {"hex", ccl_isxdigit},
    {"hdigit", ccl_isxdigit},      {"hexadecimal", ccl_isxdigit}, {"xdigit", ccl_isxdigit},
    {"ident", ccl_isident},        {"identifier", ccl_isident},   {"ident1", ccl_isident1},
    {"identifier1", ccl_isident1}, {"lower", ccl_islower},        {"lowercase", ccl_islower},
    {"octal", ccl_isodigit},       {"odigit", ccl_isodigit},      {"print", ccl_isprint},
    {"printable", ccl_isprint},    {"punct", ccl_ispunct},        {"punctuation", ccl_ispunct},
    {"space", ccl_isspace},        {"whitespace", ccl_isspace},   {"upper", ccl_isupper},
    {"uppercase", ccl_isupper},    {"vowel", ccl_isvowel},
};

// Codes outside 0..255 belong to no class.
int belongs(int code, Class wanted) {
  return code >= 0 && code <= 255 && is(static_cast<Byte>(code), wanted) ? 1 : 0;
}

}  // namespace
}  // namespace vstring::charclass

using vstring::charclass::mask;

#define MASKS_4(n) mask(n), mask((n) + 1), mask((n) + 2), mask((n) + 3)
#define MASKS_16(n) MASKS_4(n), MASKS_4((n) + 4), MASKS_4((n) + 8), MASKS_4((n) + 12)
#define MASKS_64(n) MASKS_16(n), MASKS_16((n) + 16), MASKS_16((n) + 32), MASKS_16((n) + 48)
constinit uint32_t cclbm[256] = {MASKS_64(0), MASKS_64(64), MASKS_64(128), MASKS_64(192)};
#undef MASKS_64
#undef MASKS_16
#undef MASKS_4

namespace charclass = vstring::charclass;

int ccl_islower(int code) { return charclass::belongs(code, charclass::kLower); }
int ccl_isupper(int code) { return charclass::belongs(code, charclass::kUpper); }
int ccl_isalpha(int code) { return charclass::belongs(code, charclass::kAlpha); }
int ccl_isdigit(int code) { return charclass::belongs(code, charclass::kDigit); }
int ccl_isbdigit(int code) { return charclass::belongs(code, charclass::kBinaryDigit); }
int ccl_isodigit(int code) { return charclass::belongs(code, charclass::kOctalDigit); }
int ccl_isxdigit(int code) { return charclass::belongs(code, charclass::kHexDigit); }
int ccl_isalnum(int code) { return charclass::belongs(code, charclass::kAlnum); }
int ccl_isgraph(int code) { return charclass::belongs(code, charclass::kGraph); }
int ccl_isprint(int code) { return charclass::belongs(code, charclass::kPrint); }
int ccl_ispunct(int code) { return charclass::belongs(code, charclass::kPunct); }
int ccl_iscntrl(int code) { return charclass::belongs(code, charclass::kControl); }
int ccl_isvowel(int code) { return charclass::belongs(code, charclass::kVowel); }
int ccl_isident(int code) { return charclass::belongs(code, charclass::kIdent); }
int ccl_isident1(int code) { return charclass::belongs(code, charclass::kIdent1); }
int ccl_isdna(int code) { return charclass::belongs(code, charclass::kDna); }
int ccl_isspace(int code) { return charclass::belongs(code, charclass::kSpace); }
int ccl_isascii(int code) { return charclass::belongs(code, charclass::kAscii); }

CharTest CharClassNameToTest(const char* name) {
  if (name == nullptr || name[0] < 'a' || name[0] > 'x') return nullptr;
  for (const auto& [text, test] : charclass::kNames) {
    if (std::strcmp(text, name) == 0) return test;
  }
  return nullptr;
}
