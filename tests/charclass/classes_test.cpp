// Classes: membership, names, predicates, filters, specifications.
#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <map>
#include <sstream>
#include <string>

#include "host/vstring.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

// The published membership of the codes below 128 (none has others), and what users may call a
// class: everywhere, in CharClassNameToTest only, in GetFilter only.
struct ClassFacts {
  const char* name;
  CharTest test;
  VelmorCommand is, has;
  bool (*holds)(int c);
  const char *names, *class_names, *filter_names;

  bool has_code(int code) const { return code >= 0 && code < 128 && holds(code); }
};

// clang-format off
#define CLASS(test, command, definition, ...) \
  {#test, ccl_is##test, vstring_is##command, vstring_has##command, \
   []([[maybe_unused]] int c) -> bool { return definition; }, __VA_ARGS__}
#define AMONG(members) c != 0 && std::strchr(members, c) != nullptr
const ClassFacts kClasses[] = {
    CLASS(lower, lower, std::islower(c), "lower lowercase", "", ""),
    CLASS(upper, upper, std::isupper(c), "upper uppercase", "", ""),
    CLASS(alpha, alpha, std::isalpha(c), "alpha", "alphabetic", "letters"),
    CLASS(digit, digit, std::isdigit(c), "digit", "digits", "numeric"),
    CLASS(bdigit, bdigit, AMONG("01"), "binary", "bdigit", "bits"),
    CLASS(odigit, odigit, AMONG("01234567"), "octal odigit", "", ""),
    CLASS(xdigit, xdigit, std::isxdigit(c), "hex xdigit", "hdigit hexadecimal", ""),
    CLASS(alnum, alphaNumeric, std::isalnum(c), "alnum alphanumeric", "", ""),
    CLASS(graph, graph, std::isgraph(c), "graph graphic", "", ""),
    CLASS(print, print, std::isprint(c), "print printable", "", ""),
    CLASS(punct, punct, std::ispunct(c), "punct punctuation", "", ""),
    CLASS(cntrl, cntrl, std::iscntrl(c), "cntrl control", "", ""),
    CLASS(vowel, vowel, AMONG("aeiouAEIOU"), "vowel", "", ""),
    CLASS(ident, ident, std::isalnum(c) || c == '_' || c == '?', "ident identifier", "", ""),
    CLASS(ident1, ident1, std::isalpha(c) || c == '_' || c == '%', "ident1", "identifier1", ""),
    CLASS(dna, dna, AMONG("ACGT"), "dna", "", "DNA"),
    CLASS(space, space, std::isspace(c), "space whitespace", "", ""),
    CLASS(ascii, ascii, true, "ascii", "", "ASCII"),
};
#undef AMONG
#undef CLASS
// clang-format on

bool lists(const std::string& words, const std::string& word) {
  return !word.empty() && (" " + words + " ").find(" " + word + " ") != words.npos;
}

TEST(Classes, EveryCodeInEveryClass) {
  std::uint32_t bit = 1;
  for (const ClassFacts& facts : kClasses) {
    for (int code = -130; code < 260; ++code) {
      const bool expected = facts.has_code(code);
      EXPECT_EQ(expected, facts.test(code) != 0) << facts.name << code;
      if (code < 0 || code > 255) continue;
      EXPECT_EQ(expected, (cclbm[code] & bit) != 0) << facts.name << code;
      for (const std::size_t length : {1U, 1500U}) {
        if (code == 0) continue;
        const std::string bytes(length, static_cast<char>(code));
        EXPECT_EQ(expected, truth(facts.is, {bytes})) << facts.name << code;
        EXPECT_EQ(expected, truth(facts.has, {bytes})) << facts.name << code;
      }
    }
    bit <<= 1;
  }
}

// The test that the value of a class option selects, called as a command would; "error: ..." else.
CharTest selected;
std::string select(const Value& value) {
  selected = nullptr;
  return call(
      [](const HostTable* host, HostObject argseq) {
        selected = GetFilter(host, reinterpret_cast<const HostObject*>(argseq)[1]);
        return host->HostNull();
      },
      {value});
}

TEST(Classes, Names) {
  std::string names = "Alpha alph alphax yes LAST ";
  for (const auto& facts : kClasses) {
    for (const char* const more : {facts.names, facts.class_names, facts.filter_names})
      names += std::string(more) + " ";
  }
  std::istringstream in(names);
  for (std::string word; in >> word;) {
    CharTest as_class = nullptr, as_filter = nullptr;
    for (const auto& facts : kClasses) {
      const bool is_common = lists(facts.names, word);
      if (is_common || lists(facts.class_names, word)) as_class = facts.test;
      if (is_common || lists(facts.filter_names, word)) as_filter = facts.test;
    }
    EXPECT_EQ(as_class, CharClassNameToTest(word.c_str())) << word;
    const std::string answer = select(name(word));
    EXPECT_EQ(as_filter, selected) << word;
    if (as_filter == nullptr) {
      EXPECT_EQ("error: unrecognised character class `" + word + "'", answer);
    } else {
      select(name("last"));
      EXPECT_EQ(as_filter, selected) << word;
    }
  }
}

TEST(Classes, FilterAlphabet) {
  EXPECT_EQ("", select("x\351"));
  EXPECT_EQ(AlphabetFilter, selected);
  EXPECT_TRUE(selected('x') != 0 && selected(0351) != 0 && selected(0) != 0);
  EXPECT_TRUE(selected('a') == 0 && selected(-23) == 0);
  EXPECT_EQ("error: character class must be nonempty", select(""));
  const std::string longest = std::string(255, 'a') + 'b';
  EXPECT_EQ("", select(longest));
  EXPECT_TRUE(AlphabetFilter('b') != 0 && AlphabetFilter('x') == 0);
  EXPECT_EQ("error: alphabet too long (must be at most 255 characters)", select(longest + 'c'));
  EXPECT_TRUE(AlphabetFilter('b') != 0) << "a refused alphabet changes nothing";
  SetFilterAlphabet((std::string(256, 'z') + 'b').c_str());
  EXPECT_TRUE(AlphabetFilter('z') != 0 && AlphabetFilter('b') == 0) << "cut at 256 bytes";
  EXPECT_EQ("error: unrecognised character class `7'", select(7));
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
  cclbm[0351] |= 0x87;
  cclbm[one] |= 0x10002;
  cclbm[b] &= ~0x2U;
  cclbm[int{' '}] &= ~0x10000U;
  CheckInOrder({
      {R"(isalpha("\351"), hasalpha("\351"), isalpha("a\351", 2 .. 2))", "false, false, true"},
      {R"(isupper("1B"), hasupper("B"), isupper("1"))", "false, false, true"},
      {R"(isupper(repeat("1", 2000)), isupper(cap(repeat("1", 2000), "", "B")))", "true, false"},
      {R"(lowercase("AB1\351"), casesplit("aB1"))", R"("aB1\351", "aB", "1")"},
      {R"(compareci("Ab", "aB"), compareci("aB", "Ab"))", "false, true"},
      {R"(compareci(repeat("aB", 40), repeat("Ab", 40)), compareci(repeat("ab", 40), repeat("aB", 40)))",
       "true, false"},
      {R"(wrap("aa1b caa1b c", 5), substr(wrap(repeat("aa1b c", 100), 5), 1 .. 12))",
       R"("aa1\nb caa1\nb c", "aa1\nb caa1\nb")"},
      {R"(capitalise("\351A b"), substr(capitalise(repeat("\351A b", 200)), 1 .. 4))",
       R"("\351a B", "\351a B")"},
      {"lowercase(repeat(\"AB1\", 20))",
       quoted("aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1aB1")},
  });
  cclbm[0351] = 0;
  cclbm[one] &= ~0x10002U;
  cclbm[b] |= 0x2;
  cclbm[int{' '}] |= 0x10000;
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
      if (facts.has_code(code)) members += static_cast<char>(code);
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
