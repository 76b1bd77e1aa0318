// Wildcards.
#include "search/wildcard/cases.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "support/check.h"
#include "support/cpu_bound.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

// The rules, one byte of the pattern after the other, trying every place for a star. Texts are read
// up to their terminator, as signed bytes.
bool matches(const char* p, const char* t) {
  for (;; ++p) {
    if (*p == '\0') return *t == '\0';
    if (*t == '\0' && *p != '*') return false;
    if (*p == '*') {
      while (*p == '*') ++p;
      if (*p == '\0') return true;
      for (; *t != '\0'; ++t) {
        if (matches(p, t)) return true;
      }
      return false;
    }
    if (*p == '[') {
      const bool negated = p[1] == '^';
      const char* x = p + (negated ? 2 : 1);
      if (*x == '\0') return false;
      bool member = *x == *t;
      for (const char* c = x + 1; *c != ']'; ++c) {
        if (*c == '\0') return false;
        if (*c == '-' && c[1] == ']') {
          member |= *t >= *x;
        } else if (*c == '-') {
          ++c;
          if (*c == '\0') return false;
          member |= *t == *x || *t == *c || (*x < *t && *t < *c);
        } else {
          member |= *t == *c;
        }
        x = c;
      }
      p = x + 1;  // the closing bracket
      if (member == negated) return false;
    } else if (*p == '\\') {
      if (p[1] != '\0') ++p;
    } else if (*p != '?' && *p != *t) {
      return false;
    }
    ++t;
  }
}

void expect_same(const std::string& pattern, const std::string& subject) {
  EXPECT_EQ(matches(pattern.c_str(), subject.c_str()), truth(vstring_wild, {pattern, subject}))
      << pattern << " on " << subject;
}

// The library goes through these tables in wildTest and in the script below.
TEST(Wild, Tables) {
  for (const auto& [pattern, subject] : vstring::search::kMatching) {
    EXPECT_TRUE(matches(pattern, subject)) << pattern << " on " << subject;
  }
  for (const auto& [pattern, subject] : vstring::search::kNotMatching) {
    EXPECT_FALSE(matches(pattern, subject)) << pattern << " on " << subject;
  }
  Check({
      {R"(wildTest(), wildTest(7), wild("a", "a", 7))", "true, true, true"},
      {R"(wild("a\\*c", "abc"), wild("a\\", "ax"), wild("a\\", "a"), wild(`a*`, abc))",
       "true, true, false, true"},
      {R"(wild("[a-c-e]", "d"), wild("[a-]", "-"), wild("[\\]]", "\\]"), wild("[^]a]", "]"))",
       "true, false, true, false"},
      {R"(wild("[\200-a]", "\351"), wild("[a-\351]", "b"), wild("[a-]", "\351"))",
       "true, false, false"},
      {R"(wild("*[a", "a"), wild("[^a", "b"), wild("\\[a", "[a"), wild("", ""), wild("", "a"))",
       "false, false, true, true, false"},
      {R"(wild("*[ab]?c*", repeat("ab", 600)), wild("*[ab]?b*", repeat("ab", 600)))",
       "false, true"},
      {R"(wild(cap(repeat("[ab]", 70), "*", "c*"), repeat("ab", 600)))", "false"},
  });
}

TEST(Wild, EveryShortPattern) {
  const std::vector<std::string> subjects = all_words("ab", 4);
  for (const std::string& pattern : all_words("ab?*[]-", 4)) {
    for (const std::string& subject : subjects) expect_same(pattern, subject);
  }
}

// Patterns put together at random, on texts long enough for the automaton and its several words.
TEST(Wild, LongerPatterns) {
  const char* const kElements[] = {"*",    "*",     "?",       "a",     "b",          "a",
                                   "\\b",  "[ab]",  "[^b]",    "[b-a]", "[]a-]",      "[-\351]",
                                   "aaaa", "[^-b]", "[\200-]", "**",    "[a-b-\351]", "abab"};
  std::uint32_t state = 12345;
  const auto below = [&](std::uint32_t n) {
    state = state * 1664525 + 1013904223;
    return (state >> 16) % n;
  };
  const std::size_t rounds = long_tier() ? 20000 : 2000;
  for (std::size_t round = 0; round < rounds; ++round) {
    std::string pattern, subject;
    const std::uint32_t n = 1 + below(round % 10 == 0 ? 160 : 12);
    int stars = 0;
    for (std::uint32_t i = 0; i < n; ++i) {
      const std::string element = kElements[below(std::size(kElements))];
      if (element[0] == '*' && ++stars > 3) continue;  // the definition is exponential in them
      pattern += element;
    }
    const std::uint32_t length = below(n < 20 ? 100 : 400);
    for (std::uint32_t i = 0; i < length; ++i) subject += "aab\351"[below(below(2) == 0 ? 3 : 4)];
    expect_same(pattern, subject);
  }
  for (const std::size_t m : {63U, 64U, 65U, 128U, 129U}) {
    for (const char* const last : {"a", "[^b]", "b"}) {
      std::string pattern = "*";
      for (std::size_t i = 1; i < m; ++i) pattern += i % 7 == 0 ? "?" : "[ab]";
      const std::string subject = std::string(m - 1, 'b') + "a" + std::string(m, 'b');
      expect_same(pattern + last + "*b", subject);
    }
  }
}

// Nothing to backtrack into: all of these take the definition hours or more.
TEST(Wild, LongTextsAnswerAtOnce) {
  const CpuBound bound(20);
  const std::string run(1 << 20, 'a');
  std::string stars, sets;
  for (int i = 0; i < 50; ++i) {
    stars += "*a";
    sets += "*[a-c]?";
  }
  const std::string half(1 << 19, 'a');
  EXPECT_FALSE(truth(vstring_wild, {"*a*a*a*a*a*a*a*a*b", run}));
  EXPECT_FALSE(truth(vstring_wild, {stars + "*b", run}));
  EXPECT_FALSE(truth(vstring_wild, {sets + "b", run}));
  EXPECT_TRUE(truth(vstring_wild, {stars + sets + "*", run}));
  EXPECT_FALSE(truth(vstring_wild, {"*" + half + "b*", run}));
  EXPECT_FALSE(truth(vstring_wild, {"*[ab]" + half.substr(0, 4000) + "b*", run}));
  EXPECT_FALSE(truth(vstring_wild, {std::string(1 << 20, '['), run}));
  EXPECT_FALSE(truth(vstring_wild, {"*[" + half + "]*b", run}));
}

// The script tests the matcher in a host, under the name that the host gives it.
TEST(Wild, GeneratedScriptPasses) {
  testing::internal::CaptureStdout();
  Check({{"wildTester()", ""}});
  const std::string output = testing::internal::GetCapturedStdout();
  const std::string end = "#end test\n";
  const std::string script = output.substr(0, output.find(end) + end.size());
  EXPECT_EQ(0U,
            script.find("# THIS FILE IS AUTOMATICALLY GENERATED -- DO NOT EDIT!\n\n#test\n"
                        "\twith( Lexiva );\n\n\t# The following tests should all return true\n\n"
                        "\tTRY( 1, WildcardMatch( \"*\", \"\" ), true );\n"));
  EXPECT_NE(script.npos, script.find("\n\n\t# The following tests should all return false\n\n"));
  EXPECT_NE(script.npos, script.find("\n\tTRY( 38, WildcardMatch( "));
  std::ostringstream out, err;
  EXPECT_EQ(velmor::Verdict::kFine, session().run(script, out, err));
  EXPECT_EQ("", err.str());
}

}  // namespace
}  // namespace vstring_test
