// Classes: membership, names, predicates, filters, specifications.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "host/vstring.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

// The published membership, spelled out once more.
struct ClassFacts {
  const char* name;
  CharTest test;
  VelmorCommand is, has;
  std::function<bool(int)> contains;
  std::set<std::string> class_names;   // of CharClassNameToTest
  std::set<std::string> filter_names;  // of GetFilter
};

bool in(int c, const char* members) {
  return c != 0 && std::string(members).find(static_cast<char>(c)) != std::string::npos;
}
bool within(int c, int low, int high) { return low <= c && c <= high; }
bool lower(int c) { return within(c, 'a', 'z'); }
bool upper(int c) { return within(c, 'A', 'Z'); }
bool letter(int c) { return lower(c) || upper(c); }
bool digit(int c) { return within(c, '0', '9'); }
bool letter_or_digit(int c) { return letter(c) || digit(c); }

const ClassFacts kClasses[] = {
    {"lower",
     ccl_islower,
     vstring_islower,
     vstring_haslower,
     lower,
     {"lower", "lowercase"},
     {"lower", "lowercase"}},
    {"upper",
     ccl_isupper,
     vstring_isupper,
     vstring_hasupper,
     upper,
     {"upper", "uppercase"},
     {"upper", "uppercase"}},
    {"alpha",
     ccl_isalpha,
     vstring_isalpha,
     vstring_hasalpha,
     letter,
     {"alpha", "alphabetic"},
     {"alpha", "letters"}},
    {"digit",
     ccl_isdigit,
     vstring_isdigit,
     vstring_hasdigit,
     digit,
     {"digit", "digits"},
     {"digit", "numeric"}},
    {"bdigit",
     ccl_isbdigit,
     vstring_isbdigit,
     vstring_hasbdigit,
     [](int c) { return c == '0' || c == '1'; },
     {"bdigit", "binary"},
     {"binary", "bits"}},
    {"odigit",
     ccl_isodigit,
     vstring_isodigit,
     vstring_hasodigit,
     [](int c) { return within(c, '0', '7'); },
     {"octal", "odigit"},
     {"octal", "odigit"}},
    {"xdigit",
     ccl_isxdigit,
     vstring_isxdigit,
     vstring_hasxdigit,
     [](int c) { return in(c, "0123456789ABCDEFabcdef"); },
     {"hex", "hdigit", "hexadecimal", "xdigit"},
     {"xdigit", "hex"}},
    {"alnum",
     ccl_isalnum,
     vstring_isalphaNumeric,
     vstring_hasalphaNumeric,
     letter_or_digit,
     {"alnum", "alphanumeric"},
     {"alnum", "alphanumeric"}},
    {"graph",
     ccl_isgraph,
     vstring_isgraph,
     vstring_hasgraph,
     [](int c) { return within(c, 33, 126); },
     {"graph", "graphic"},
     {"graph", "graphic"}},
    {"print",
     ccl_isprint,
     vstring_isprint,
     vstring_hasprint,
     [](int c) { return within(c, 32, 126); },
     {"print", "printable"},
     {"print", "printable"}},
    {"punct",
     ccl_ispunct,
     vstring_ispunct,
     vstring_haspunct,
     [](int c) { return within(c, 33, 126) && !letter_or_digit(c); },
     {"punct", "punctuation"},
     {"punct", "punctuation"}},
    {"cntrl",
     ccl_iscntrl,
     vstring_iscntrl,
     vstring_hascntrl,
     [](int c) { return within(c, 0, 31) || c == 127; },
     {"cntrl", "control"},
     {"cntrl", "control"}},
    {"vowel",
     ccl_isvowel,
     vstring_isvowel,
     vstring_hasvowel,
     [](int c) { return in(c, "AEIOUaeiou"); },
     {"vowel"},
     {"vowel"}},
    {"ident",
     ccl_isident,
     vstring_isident,
     vstring_hasident,
     [](int c) { return letter_or_digit(c) || in(c, "_?"); },
     {"ident", "identifier"},
     {"ident", "identifier"}},
    {"ident1",
     ccl_isident1,
     vstring_isident1,
     vstring_hasident1,
     [](int c) { return letter(c) || in(c, "_%"); },
     {"ident1", "identifier1"},
     {"ident1"}},
    {"dna",
     ccl_isdna,
     vstring_isdna,
     vstring_hasdna,
     [](int c) { return in(c, "ACGT"); },
     {"dna"},
     {"dna", "DNA"}},
    {"space",
     ccl_isspace,
     vstring_isspace,
     vstring_hasspace,
     [](int c) { return within(c, 9, 13) || c == 32; },
     {"space", "whitespace"},
     {"space", "whitespace"}},
    {"ascii",
     ccl_isascii,
     vstring_isascii,
     vstring_hasascii,
     [](int c) { return within(c, 0, 127); },
     {"ascii"},
     {"ascii", "ASCII"}},
};

TEST(Classes, EveryCodeInEveryClass) {
  std::uint32_t bit = 1;
  for (const ClassFacts& facts : kClasses) {
    for (int code = 0; code < 256; ++code) {
      const bool expected = facts.contains(code);
      EXPECT_EQ(expected, facts.test(code) != 0) << facts.name << code;
      EXPECT_EQ(expected, (cclbm[code] & bit) != 0) << facts.name << code;
      if (code == 0) continue;
      const std::string byte(1, static_cast<char>(code));
      EXPECT_EQ(expected, truth(facts.is, {byte})) << facts.name << code;
      EXPECT_EQ(expected, truth(facts.has, {byte})) << facts.name << code;
    }
    for (const int code : {-1, -128, 256, 1 << 20}) EXPECT_EQ(0, facts.test(code)) << code;
    bit <<= 1;
  }
}

// The test that the value of a class option selects, called as a command would; "error: ..." else.
CharTest selected;
std::string select(HostObject value) {
  selected = nullptr;
  return call(
      [](const HostTable* host, HostObject argseq) {
        selected = GetFilter(host, reinterpret_cast<const HostObject*>(argseq)[1]);
        return host->HostNull();
      },
      {value});
}

TEST(Classes, Names) {
  VelmorHeap* const heap = session().heap();
  EXPECT_EQ("", select(velmor_name(heap, "last")));
  EXPECT_EQ(nullptr, selected) << "nothing was selected yet";
  std::set<std::string> names = {"", "Alpha", "alph", "alphax", "letters ", "yes", "LAST"};
  for (const ClassFacts& facts : kClasses) {
    names.insert(facts.class_names.begin(), facts.class_names.end());
    names.insert(facts.filter_names.begin(), facts.filter_names.end());
  }
  for (const std::string& name : names) {
    CharTest as_class = nullptr;
    CharTest as_filter = nullptr;
    for (const ClassFacts& facts : kClasses) {
      if (facts.class_names.contains(name)) as_class = facts.test;
      if (facts.filter_names.contains(name)) as_filter = facts.test;
    }
    EXPECT_EQ(as_class, CharClassNameToTest(name.c_str())) << name;
    const std::string answer = select(velmor_name(heap, name.c_str()));
    EXPECT_EQ(as_filter, selected) << name;
    if (as_filter == nullptr) {
      const std::string unknown = "error: unrecognised character class `";
      EXPECT_EQ(unknown, answer.substr(0, unknown.size())) << name;
    } else {
      select(velmor_name(heap, "last"));
      EXPECT_EQ(as_filter, selected) << name;
    }
  }
}

TEST(Classes, FilterAlphabet) {
  VelmorHeap* const heap = session().heap();
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(code == 0 || lower(code), AlphabetFilter(code) != 0) << code;
  }
  EXPECT_EQ("", select(velmor_string(heap, "x\351")));
  EXPECT_EQ(AlphabetFilter, selected);
  EXPECT_TRUE(selected('x') != 0 && selected(0351) != 0 && selected(0) != 0);
  EXPECT_TRUE(selected('a') == 0 && selected(-23) == 0);
  EXPECT_EQ("error: character class must be nonempty", select(velmor_string(heap, "")));
  const std::string longest = std::string(255, 'a') + 'b';
  EXPECT_EQ("", select(velmor_string(heap, longest.c_str())));
  EXPECT_TRUE(AlphabetFilter('b') != 0 && AlphabetFilter('x') == 0);
  EXPECT_EQ("error: alphabet too long (must be at most 255 characters)",
            select(velmor_string(heap, (longest + 'c').c_str())));
  EXPECT_TRUE(AlphabetFilter('b') != 0) << "a refused alphabet changes nothing";
  SetFilterAlphabet((std::string(256, 'z') + 'b').c_str());
  EXPECT_TRUE(AlphabetFilter('z') != 0 && AlphabetFilter('b') == 0) << "cut at 256 bytes";
  EXPECT_EQ("error: unrecognised character class `7'", select(velmor_integer(heap, 7)));
  SetFilterAlphabet("abcdefghijklmnopqrstuvwxyz");
}

TEST(Predicates, WholeTextsAndRanges) {
  Check({
      {R"(isdigit(""), hasdigit(""))", "true, false"},
      {R"(isdigit("123"), isdigit("12a"), hasdigit("ab1"), hasdigit(abc))",
       "true, false, true, false"},
      {R"(isalpha("ab1", 1 .. 2), isalpha("ab1", 2 .. -1), hasalpha("1ab", 1 .. 1))",
       "true, false, false"},
      {R"(islower("abc", 3 .. 2), haslower("abc", 3 .. 2))", "true, false"},
      {R"(islower("\351bc", 2 .. 3), haslower("\351bc", 2 .. 3), islower("\351bc", 3 .. 2))",
       "false, false, true"},
      {R"(isalpha("ab\351", 1 .. 2), isalpha("ab\351", 1 .. 3), hasalpha("1\351", 2 .. 2))",
       "true, false, false"},
      {R"(isalpha("ab1", 1 .. 2, 7))", "true"},
      {"isvowel()", "error: expecting one argument, but got 0"},
      {"hasvowel(7, 7)", "error: argument must be a string"},
      {R"(isvowel("a", 1))", "error: second argument must be a range"},
      {R"(hasvowel("a", x))", "error: second argument must be a range"},
      {R"(isvowel("a", 1.5 .. 2))", "error: lower endpoint of range must be a small integer"},
      {R"(isvowel("a", 0 .. 1))", "error: invalid range"},
      {R"(hasvowel("", 1 .. 1))", "error: invalid range"},
  });
}

// A host may write to the masks: whole texts still count ASCII only, ranges do not.
TEST(Predicates, AskTheTableAsItIs) {
  const int one = '1';
  const int b = 'B';
  cclbm[0351] |= 0x7;
  cclbm[one] |= 0x2;
  cclbm[b] &= ~0x2U;
  CheckInOrder({
      {R"(isalpha("\351"), hasalpha("\351"), isalpha("a\351", 2 .. 2))", "false, false, true"},
      {R"(isupper("1B"), hasupper("B"), isupper("1"))", "false, false, true"},
      {R"(lowercase("AB1\351"), casesplit("aB1"))", R"("aB1\351", "aB", "1")"},
      {"lowercase(repeat(\"AB1\", 20))",
       quoted("aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1")},
  });
  cclbm[0351] = 0;
  cclbm[one] &= ~0x2U;
  cclbm[b] |= 0x2;
}

TEST(Expansion, NamedClasses) {
  std::string ascii, print, punct, controls;
  for (int c = 1; c < 128; ++c) {
    const char byte = static_cast<char>(c);
    ascii += byte;
    if (within(c, 32, 126)) print += byte;
    if (within(c, 33, 126) && !letter_or_digit(c)) punct += byte;
    if (!within(c, 32, 126)) controls += byte;
  }
  const std::string small = "abcdefghijklmnopqrstuvwxyz";
  const std::string capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  const std::pair<const char*, std::string> cases[] = {
      {"alpha", capitals + small},
      {"digit", "0123456789"},
      {"alnum", capitals + small + "0123456789"},
      {"lower", small},
      {"upper", capitals},
      {"space", " \t\n\r\f\v"},
      {"xdigit", "0123456789ABCDEFabcdef"},
      {"odigit", "01234567"},
      {"bdigit", "01"},
      {"binary", "01"},
      {"dna", "ACGT"},
      {"cntrl", controls},
      {"ascii", ascii},
      {"print", print},
      {"graph", print.substr(1)},
      {"punct", punct},
      {"ident", capitals + small + "0123456789_?"},
      {"ident1", capitals + small + "_"},
      {"vowel", "AEIOUaeiou"},
      {"nosuch", ""},
      {"", ""},
      {"alpha:", ""},
      {"digits", ""},
  };
  for (const auto& [name, members] : cases) {
    const std::string spec = ":" + std::string(name) + ":";
    for (const std::string& form : {spec, "[" + spec + "]", "[[" + spec + "]]"}) {
      EXPECT_EQ(members, text(vstring_expandCharClass, {form})) << form;
    }
  }
}

TEST(Expansion, Lists) {
  Check({
      {R"(expandCharClass("cab-da"))", R"("abcd")"},
      {R"(expandCharClass("[[abc]]"), expandCharClass("[]"), expandCharClass(""))",
       R"("abc", "", "")"},
      {R"(expandCharClass("a-"), expandCharClass("-a"), expandCharClass("--/"))",
       R"("-a", "-a", "-./")"},
      {R"(expandCharClass("a-c-e"), expandCharClass(":"), expandCharClass("::"))",
       R"("-abce", ":", "")"},
      {R"(expandCharClass("[a][b]"), expandCharClass("["), expandCharClass("]"))",
       R"("[]ab", "[", "]")"},
      {R"(expandCharClass("[a\\]"), expandCharClass("[a\\\\]"), expandCharClass("[\\]]"))",
       R"("[]a", "[\\]a", "]")"},
      {R"(expandCharClass("\\a-c"), expandCharClass("A-\\") , expandCharClass("a\\"))",
       R"("-ac", "ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\", "\\a")"},
      {R"(expandCharClass(":a\\:"), expandCharClass("\\^a"), expandCharClass(`b^a`))",
       R"(":a", "^a", "^ab")"},
      {R"(length(expandCharClass("^")), length(expandCharClass("[^a-z]")))", "255, 229"},
      {R"(expandCharClass("\376-\377"), length(expandCharClass("^\001-\377")))",
       R"("\376\377", 0)"},
      {R"(expandCharClass("z-a"))", "error: invalid character class specification"},
      {R"(expandCharClass("[^a-\\z]"))", "error: invalid character class specification"},
      {R"(expandCharClass("a", 7))", R"("a")"},
      {"expandCharClass()", "error: expecting one argument, but got 0"},
      {"expandCharClass([a])", "error: argument must be a string"},
  });
}

}  // namespace
}  // namespace vstring_test
