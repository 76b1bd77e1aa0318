// Classes: membership, names, predicates, filters, specifications.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "host/vstring.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

// The published membership, by code, and what users may call a class.
struct ClassFacts {
  const char* name;
  CharTest test;
  VelmorCommand is, has;
  const char* codes;
  const char* class_names;   // of CharClassNameToTest
  const char* filter_names;  // of GetFilter
};

// clang-format off
#define CLASS(test, command, ...) \
  {#test, ccl_is##test, vstring_is##command, vstring_has##command, __VA_ARGS__}
const ClassFacts kClasses[] = {
    CLASS(lower, lower, "97-122", "lower lowercase", "lower lowercase"),
    CLASS(upper, upper, "65-90", "upper uppercase", "upper uppercase"),
    CLASS(alpha, alpha, "65-90 97-122", "alpha alphabetic", "alpha letters"),
    CLASS(digit, digit, "48-57", "digit digits", "digit numeric"),
    CLASS(bdigit, bdigit, "48-49", "bdigit binary", "binary bits"),
    CLASS(odigit, odigit, "48-55", "octal odigit", "octal odigit"),
    CLASS(xdigit, xdigit, "48-57 65-70 97-102", "hex hdigit hexadecimal xdigit", "xdigit hex"),
    CLASS(alnum, alphaNumeric, "48-57 65-90 97-122", "alnum alphanumeric", "alnum alphanumeric"),
    CLASS(graph, graph, "33-126", "graph graphic", "graph graphic"),
    CLASS(print, print, "32-126", "print printable", "print printable"),
    CLASS(punct, punct, "33-47 58-64 91-96 123-126", "punct punctuation", "punct punctuation"),
    CLASS(cntrl, cntrl, "0-31 127-127", "cntrl control", "cntrl control"),
    CLASS(vowel, vowel, "65-65 69-69 73-73 79-79 85-85 97-97 101-101 105-105 111-111 117-117",
          "vowel", "vowel"),
    CLASS(ident, ident, "48-57 63-63 65-90 95-95 97-122", "ident identifier", "ident identifier"),
    CLASS(ident1, ident1, "37-37 65-90 95-95 97-122", "ident1 identifier1", "ident1"),
    CLASS(dna, dna, "65-65 67-67 71-71 84-84", "dna", "dna DNA"),
    CLASS(space, space, "9-13 32-32", "space whitespace", "space whitespace"),
    CLASS(ascii, ascii, "0-127", "ascii", "ascii ASCII"),
};
#undef CLASS
// clang-format on

std::vector<std::string> words_of(const char* list) {
  std::istringstream in(list);
  return {std::istream_iterator<std::string>(in), {}};
}

bool lists(const char* list, const std::string& word) {
  const std::vector<std::string> words = words_of(list);
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool covers(const char* codes, int code) {
  for (const std::string& range : words_of(codes)) {
    const std::size_t dash = range.find('-');
    if (std::stoi(range) <= code && code <= std::stoi(range.substr(dash + 1))) return true;
  }
  return false;
}

TEST(Classes, EveryCodeInEveryClass) {
  std::uint32_t bit = 1;
  for (const ClassFacts& facts : kClasses) {
    for (int code = 0; code < 256; ++code) {
      const bool expected = covers(facts.codes, code);
      EXPECT_EQ(expected, facts.test(code) != 0) << facts.name << code;
      EXPECT_EQ(expected, (cclbm[code] & bit) != 0) << facts.name << code;
      if (code == 0) continue;
      for (const std::size_t length : {1U, 1500U}) {
        const std::string bytes(length, static_cast<char>(code));
        EXPECT_EQ(expected, truth(facts.is, {bytes})) << facts.name << code;
        EXPECT_EQ(expected, truth(facts.has, {bytes})) << facts.name << code;
      }
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
    for (const char* const list : {facts.class_names, facts.filter_names}) {
      for (const std::string& name : words_of(list)) names.insert(name);
    }
  }
  for (const std::string& name : names) {
    CharTest as_class = nullptr;
    CharTest as_filter = nullptr;
    for (const ClassFacts& facts : kClasses) {
      if (lists(facts.class_names, name)) as_class = facts.test;
      if (lists(facts.filter_names, name)) as_filter = facts.test;
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
    EXPECT_EQ(code == 0 || (code >= 'a' && code <= 'z'), AlphabetFilter(code) != 0) << code;
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
      {R"(isalpha("ab1", 1 .. 2, 7), isalpha("ab1", 2 .. -1), hasalpha("1ab", 1 .. 1))",
       "true, false, false"},
      {R"(islower("abc", 3 .. 2), haslower("abc", 3 .. 2))", "true, false"},
      {R"(islower("\351bc", 2 .. 3), haslower("\351bc", 2 .. 3), islower("\351bc", 3 .. 2))",
       "false, false, true"},
      {R"(isalpha("ab\351", 1 .. 2), isalpha("ab\351", 1 .. 3), hasalpha("1\351", 2 .. 2))",
       "true, false, false"},
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
      {R"(isupper(repeat("1", 2000)), isupper(cap(repeat("1", 2000), "", "B")))", "true, false"},
      {R"(lowercase("AB1\351"), casesplit("aB1"))", R"("aB1\351", "aB", "1")"},
      {"lowercase(repeat(\"AB1\", 20))",
       quoted("aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1")},
  });
  cclbm[0351] = 0;
  cclbm[one] &= ~0x2U;
  cclbm[b] |= 0x2;
}

// Named classes list their members in an order of their own; those that list them by code agree
// with the class of that name.
TEST(Expansion, NamedClasses) {
  const std::string small = "abcdefghijklmnopqrstuvwxyz";
  const std::string capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::map<std::string, std::string> expected = {{"alnum", capitals + small + "0123456789"},
                                                 {"space", " \t\n\r\f\v"},
                                                 {"ident", capitals + small + "0123456789_?"},
                                                 {"ident1", capitals + small + "_"},
                                                 {"binary", "01"},
                                                 {"nosuch", ""},
                                                 {"", ""},
                                                 {"alpha:", ""},
                                                 {"digits", ""}};
  for (const ClassFacts& facts : kClasses) {
    std::string members;
    for (int code = 1; code < 256; ++code) {
      if (covers(facts.codes, code)) members += static_cast<char>(code);
    }
    expected.insert({facts.name, members});
  }
  for (const auto& [name, members] : expected) {
    const std::string spec = ":" + name + ":";
    for (const std::string& form : {spec, "[" + spec + "]", "[[" + spec + "]]"}) {
      EXPECT_EQ(members, text(vstring_expandCharClass, {form})) << form;
    }
  }
}

TEST(Expansion, Lists) {
  Check({
      {R"(expandCharClass("cab-da", 7))", R"("abcd")"},
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
  });
}

}  // namespace
}  // namespace vstring_test
