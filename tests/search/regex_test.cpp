// regmatch, regsub, regsubs, regsplit, and the engine's three routines.
#include <gtest/gtest.h>
#include <pthread.h>

#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "search/regex/program.h"
#include "search/regex_comparison.h"
#include "support/check.h"
#include "support/cpu_bound.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

using namespace vstring::regex;

std::string call_of(const std::string& command, const std::string& pattern,
                    const std::string& text) {
  return command + "(" + quoted(pattern) + ", " + quoted(text) + ")";
}

TEST(Regex, RefusalsInTheOrderOfThePattern) {
  const std::string ten(10, '(');
  const std::pair<std::string, std::vector<std::string>> messages[] = {
      {"nested *?+", {"a**", "a?+", "(ab)+*"}},
      {"?+* follows nothing", {"*a", "a|+", "(?)"}},
      {"unmatched ()", {"(a", "(a|b", "a)", "a)*", std::string(100000, 'a') + "("}},
      {"unmatched []", {"[a", "[^]", "[", "[a-"}},
      {"invalid [] range", {"[z-a]", "[z-a", "[a--]", "[\377-\200]"}},
      {"*+ operand could be empty", {"(a*)*", "^**", "(a|)+", "$+"}},
      {"trailing \\", {"a\\", "(a\\"}},
      {"too many ()", {ten, ten + "*", "(a)(a)(a)(a)(a)(a)(a)(a)(a)(a)"}},
      {"regexp too big", {std::string(kMaxProgram - 10, 'a')}},
  };
  for (const auto& [message, patterns] : messages) {
    const std::string expected = "error: cannot compile regular expression: " + message;
    for (const std::string& pattern : patterns) {
      CheckInOrder({{call_of("regmatch", pattern, "a"), expected},
                    {"regsub(" + quoted(pattern) + ", \"\", \"\")", expected},
                    {"regsubs(" + quoted(pattern) + " = \"\", \"\")", expected},
                    {call_of("regsplit", pattern, ""), expected}});
      EXPECT_EQ(nullptr, vrx_regcomp(pattern.c_str()));
      EXPECT_STREQ(message.c_str(), vrx_regerror(nullptr));
    }
  }
}

// What the exhaustive oracle's small patterns do not reach: other sets, escapes, bytes, nine
// groups.
TEST(Regex, Syntax) {
  const std::string cases[][3] = {
      // pattern, text, match
      {"(((((((((a)))))))))", "ba", "a"},
      {"[]a]+", "x]a]", "]a]"},
      {"[a-]+", "x-a-", "-a-"},
      {"[-a]+", "x-a-", "-a-"},
      {"[^-a]+", "-xa", "x"},
      {"[a-c-e]+", "abcdef", "abcde"},
      {"[]-a]+", "[\\]^_`ab", "]^_`a"},
      {"[--/]+", "+,-./0", "-./"},
      {"[\\]+", "a\\\\b", "\\\\"},
      {"[\200-\377]+", "a\200\377b", "\200\377"},
      {"\377+", "a\377\377", "\377\377"},
      {"a]", "a]", "a]"},
      {"a\\.b", "axb a.b", "a.b"},
      {".+", "a\nb", "a\nb"},
  };
  for (const auto& [pattern, text, match] : cases) {
    CheckInOrder({{"regmatch(" + quoted(pattern) + ", " + quoted(text) + ", 'm'), m",
                   "true, " + quoted(match)}});
  }
}

TEST(Regex, Match) {
  Check({
      {R"(regmatch("b", "abc"), regmatch(b, 'abc'))", "true, true"},
      {R"(regmatch("x", "abc"))", "false"},
      {"regmatch()", "error: expecting 2 arguments, but got 0"},
      {"regmatch(1, 2)", "error: first argument (pattern) must be a string"},
      {"regmatch(\"a\", 2)", "error: second argument (text) must be a string"},
      {R"(regmatch("a", "b", 7))", "false"},
      {"regmatch(\"a|(b)\", \"a\", 'm', 7)", "true"},
      {"regmatch(\"a\", \"a\", FAIL)", "error: cannot assign to FAIL"},
      {"regmatch(\"a\", \"a\", take)", "error: cannot assign to take"},
  });
  CheckInOrder({
      {"regmatch(\"(a)*(x)?(b+)\", \"caaabb\", 'm', 'g1', 'g2', 'g3'), [m, g1, g2, g3]",
       R"(true, ["aaabb", "a", g2, "bb"])"},
      {"regmatch(\"(a)(b)\", \"ab\", 'm', 'g1', 2)", "error: optional arguments must be symbols"},
      {"[m, g1]", R"(["ab", "a"])"},
      {R"(regmatch("b*", repeat("b", 8191), 'm'), length(m))", "true, 8191"},
      {R"(regmatch("b*", repeat("b", 8192), 'm'), length(m))", "true, 8192"},
  });
}

TEST(Regex, WarnsOfSurplusNames) {
  std::string said;
  const auto listen = [](void* context, std::int64_t level, const char* package, const char* text) {
    *static_cast<std::string*>(context) += std::to_string(level) + package + ": " + text + "\n";
  };
  velmor_set_userinfo(session().heap(), listen, &said);
  CheckInOrder({{"regmatch(\"a\", 1, 2,3,4,5,6,7,8,9,10,11,12,13)",
                 "error: second argument (text) must be a string"}});
  EXPECT_EQ("", said);
  CheckInOrder({{"regmatch(\"b\", \"a\", 2,3,4,5,6,7,8,9,10,11,12,13)", "false"}});
  EXPECT_EQ("3Lexiva: WARNING: arguments after the twelfth will be ignored\n", said);
  velmor_set_userinfo(session().heap(), nullptr, nullptr);
}

TEST(Regex, Sub) {
  Check({
      {R"(regsub("b", "abc", "[&]"))", R"("[b]")"},
      {R"(regsub("x", "abc", "[&]"))", "FAIL"},
      {R"(regsub("b*", "abc", ""))", R"("")"},
      {"regsub(" + quoted("(a)|(b)") + ", \"b\", " + quoted("\\1-\\2-\\0") + ")", "\"-b-b\""},
      {"regsub(\"b\", \"b\", " + quoted("\\&\\\\&\\x\\") + ")", quoted("&\\b\\x\\")},
  });
}

TEST(Regex, Subs) {
  Check({
      {R"(regsubs("^a" = b, "aaa"))", R"("bbb")"},
      {R"(regsubs("x" = "y", abc))", R"("abc")"},
      {"regsubs(\"(b)|c\" = " + quoted("<\\1>") + ", \"abcd\")", "\"a<b><>d\""},
      {"regsubs(\"[a-z]+\" = " + quoted("&,\\1") + ", \"ab cd\")", "\"ab, cd,\""},
      {R"(regsubs("b|$" = "", "ab"))", R"("a")"},
      {"regsubs(\"a\", 1)",
       "error: first argument must be an equation of the form PATTERN = REPLACEMENT"},
      {"regsubs(1 = 2, 3)", "error: left hand side of first argument must be a string"},
      {"regsubs(a = 2, 3)", "error: right hand side of first argument must be a string"},
      {R"(length(regsubs("b" = "abcde", repeat("xb", 5000))))", "30000"},
      {"regsubs(\"^x\" = \"\", " + quoted(std::string(8189, 'x') + "y") + ")", "\"y\""},
  });
}

TEST(Regex, Split) {
  const std::string long_piece(8190, 'x');
  Check({
      {R"(regsplit(",", "a,,b"), [regsplit(",", "a,")], regsplit(",", abc), [regsplit(",", "")])",
       R"("a", "", "b", ["a"], abc, [])"},
      {R"([regsplit("^.", "abc")])", R"(["", "", ""])"},
  });
  // A piece that is too long for the scratch buffer gives what was built there before it.
  Check(
      {{call_of("regsplit", ",", "abc," + long_piece + ",de,f"), "\"abc\", \"abc\", \"de\", \"f\""},
       {call_of("regsplit", ",", "abc," + long_piece), "\"abc\", " + quoted(long_piece)},
       {call_of("regsplit", ",", long_piece.substr(1) + ",b"),
        quoted(long_piece.substr(1)) + ", \"b\""}});
}

TEST(Regex, EveryAllocationMayFail) {
  const std::string no_space = "error: cannot compile regular expression: out of space";
  std::string text(3000, 'a');
  Check(
      {{"[regmatch(\"x\", \"\"), regmatch(\"(a|[ab])+$\", \"aab\")]", "[false, true]", no_space}});
  // Long enough for backtracking to give up, and then for looking ahead over and over.
  text.back() = 'b';
  Check({{"regsubs(\"(a|b)*c|a\" = \"\", " + vstring_test::quoted(text) + ")", "\"b\"",
          "error: cannot execute compiled regular expression: out of space"}});
}

// What backtracking alone would not survive: exponential time, or quadratic time over all matches.
TEST(Regex, NoPatternRunsAway) {
  const CpuBound bound(100);
  const std::size_t n = 1000000;
  const std::string a(n, 'a');
  const std::string x(n, 'x');
  // First those that can be refused for want of a byte, then those that must be tried.
  for (const char* const pattern :
       {"(a|aa)+b", "(a|a)*b", "((a|b)*c)*d", "(a+a+)+[yz]", "(a+)+$b", "(a|aa)+(b|c)",
        "(a|a)*(b|c)", "((a|b)*c)*(d|e)", "(a+a+)+(y|z)", "^(a?a?)?.*b.*c"}) {
    EXPECT_FALSE(truth(vstring_regmatch, {pattern, a})) << pattern;
  }
  EXPECT_EQ(a, text(vstring_regsub, {"(a|b)*", a, "&"}));
  for (const char* const pattern : {"a.*z|a", "(aa)*b|a", "^a|(.*)(a|b)z|a"}) {
    EXPECT_EQ(std::vector<std::string>(n / 4),
              texts(vstring_regsplit, {pattern, a.substr(0, n / 4)}))
        << pattern;
    EXPECT_EQ(x, text(vstring_regsubs, {equation(pattern, "x"), a})) << pattern;
  }
}

// Sets of states that never come again: the gate gives up, and the simulation goes on alone.
TEST(Regex, TooManySetsOfStates) {
  std::mt19937 random(1);
  std::string text;
  while (text.size() < 50000) text += random() % 2 == 0 ? 'a' : 'b';
  std::string pattern = "a";
  for (int i = 0; i < 20; ++i) pattern += "[ab]";
  for (const char* const end : {"(c|d)", "c$", "(d|^)"}) {
    const Compiled compiled(pattern + end);
    const auto expected = find_by(Method::simulation, compiled, text + "c");
    EXPECT_EQ(expected, find_by(Method::gated, compiled, text + "c")) << end;
    EXPECT_EQ(expected, find_by(Method::automatic, compiled, text + "c")) << end;
    EXPECT_EQ(expected[0] >= 0, truth(vstring_regmatch, {pattern + end, text + "c"})) << end;
  }
}

// Where what a match begins with is everywhere, exact search changes its method on the way.
TEST(Regex, PrefixInManyPlaces) {
  std::string text;
  for (unsigned i = 0; i < 20000; ++i) text += i * i * 40503U >> 9 & 1U ? 'a' : 'b';
  std::vector<std::string> pieces(1);
  for (std::size_t at = 0; at < text.size();) {
    const bool matches = text.compare(at, 3, "aab") == 0 && at + 4 <= text.size();
    if (matches) {
      pieces.emplace_back();
    } else {
      pieces.back() += text[at];
    }
    at += matches ? 4 : 1;
  }
  EXPECT_EQ(pieces, texts(vstring_regsplit, {"aab.", text}));
}

// Long texts in 64 KiB of stack.
TEST(Regex, LongTextsNeedLittleStack) {
  const std::size_t n = long_tier() ? 100000000 : 3000000;
  std::string ab(n, 'a');
  for (std::size_t i = 1; i < n; i += 2) ab[i] = 'b';
  std::vector<std::ptrdiff_t> ends;
  std::function<void()> work = [&] {
    for (const char* const pattern : {"(a|b)*", "(ab)+"}) {
      const Compiled compiled(pattern);
      EXPECT_EQ(1, vrx_regexec(compiled.regex, ab.c_str()));
      ends.push_back(compiled.regex->end[0] - ab.c_str());
    }
  };
  const auto run = [](void* data) -> void* {
    (*static_cast<std::function<void()>*>(data))();
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(0, pthread_attr_setstacksize(&attributes, 64 * 1024));
  pthread_t thread;
  ASSERT_EQ(0, pthread_create(&thread, &attributes, run, &work));
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  EXPECT_EQ(std::vector<std::ptrdiff_t>(2, static_cast<std::ptrdiff_t>(n)), ends);
}

TEST(Regex, ThousandsOfAlternativesCompileAtOnce) {
  std::string pattern = "x";
  while (pattern.size() < 9300) pattern += "|ab";  // nine bytes of program for each
  const Compiled most(pattern);
  ASSERT_NE(nullptr, most.regex);
  EXPECT_EQ(1, vrx_regexec(most.regex, "cccab"));
  for (int i = 0; i < 1000000; ++i) pattern += "|ab";
  EXPECT_EQ(nullptr, vrx_regcomp(pattern.c_str()));
  EXPECT_STREQ("regexp too big", vrx_regerror(nullptr));
}

// ---- The engine by itself.

void expect_program(const std::string& pattern, const std::vector<unsigned char>& program) {
  const Compiled compiled(pattern);
  const unsigned char* const nodes = compiled.regex->program;
  EXPECT_EQ(program, std::vector<unsigned char>(nodes, nodes + compiled.regex->size)) << pattern;
}

TEST(RegexEngine, RecordHoldsProgramAndHints) {
  const Compiled x("x");
  expect_program("x", {156, kBranch, 0, 8, kExactly, 0, 5, 'x', 0, kEnd, 0, 0});
  EXPECT_EQ('x', x.regex->first_byte);
  EXPECT_EQ(0, x.regex->anchored);
  EXPECT_EQ(nullptr, x.regex->must);
  EXPECT_EQ(1, Compiled("^x").regex->anchored);
  const Compiled star(".*ab[x]cd(long)");
  EXPECT_STREQ("cd", star.regex->must);
  EXPECT_EQ(2, star.regex->must_length);
  EXPECT_EQ(0, star.regex->first_byte);
  EXPECT_EQ(nullptr, Compiled("a*b|c").regex->must);
  EXPECT_EQ('\377', static_cast<char>(Compiled("\377a").regex->first_byte));
  EXPECT_EQ(kMaxProgram, Compiled(std::string(kMaxProgram - 11, 'a')).regex->size);
}

// Where a look at the text is enough to see that nothing matches, no try clears the groups.
TEST(RegexEngine, GroupsOfAnEarlierMatchStayWhenNothingIsTried) {
  const auto has_group = [](const char* pattern, const char* matching, const char* text) {
    const Compiled compiled(pattern);
    EXPECT_EQ(1, vrx_regexec(compiled.regex, matching));
    EXPECT_EQ(0, vrx_regexec(compiled.regex, text));
    return compiled.regex->end[0] != nullptr;
  };
  EXPECT_TRUE(has_group("x(a)", "xa", "bcd"));    // first byte
  EXPECT_TRUE(has_group(".*x(a)", "xa", "bba"));  // literal
  EXPECT_FALSE(has_group("x(a)", "xa", "bxd"));
  EXPECT_FALSE(has_group("^(a)", "a", "bcd"));
  EXPECT_FALSE(has_group("(a|b)$", "a", "bcd"));
}

TEST(RegexEngine, DamagedProgramsAreReported) {
  const auto run = [](const Compiled& compiled, const char* text) {
    vrx_regerror("");
    const int matched = vrx_regexec(compiled.regex, text);
    return std::to_string(matched) + vrx_regerror(nullptr);
  };
  const Compiled x("a|b");
  VstringRegex* const regex = x.regex;  // 1: BRANCH, 4: EXACTLY a, 9: BRANCH, 12: EXACTLY b
  EXPECT_EQ("1", run(x, "ab"));
  regex->program[4] = 40;
  EXPECT_EQ("1memory corruption", run(x, "b"));
  EXPECT_EQ("0memory corruption", run(x, ""));
  regex->program[4] = kStar;  // of an operand that is no node of one byte
  EXPECT_EQ("1internal foulup", run(x, "b"));
  regex->program[4] = kExactly;
  regex->program[6] = 0;
  EXPECT_EQ("1corrupted pointers", run(x, "ab"));
  regex->program[5] = 100;  // out of the program
  EXPECT_EQ("1corrupted pointers", run(x, "ab"));
  regex->program[0] = 0;
  EXPECT_EQ("0corrupted program", run(x, "ab"));
  EXPECT_EQ(0, vrx_regexec(nullptr, "a"));
  EXPECT_STREQ("NULL parameter", vrx_regerror(nullptr));
  EXPECT_EQ(0, vrx_regexec(regex, nullptr));
  EXPECT_EQ(nullptr, vrx_regcomp(nullptr));
  EXPECT_STREQ("NULL argument", vrx_regerror(nullptr));

  for (const int alternative : {10, 18}) {
    const Compiled ends("(a|b)c");
    ends.regex->program[alternative] = kEnd;
    EXPECT_EQ("1", run(ends, "x"));
  }
  const Compiled hinted("ab");
  hinted.regex->first_byte = 'b';  // is believed
  EXPECT_EQ("0", run(hinted, "ab"));

  const Compiled circle("(a)*b");
  circle.regex->must = nullptr;
  circle.regex->program[13] = kNothing;  // the loop takes nothing any more
  EXPECT_EQ(1, vrx_regexec(circle.regex, "ab"));
}

TEST(RegexEngine, ErrorBufferIsBounded) {
  const std::string message(100000, 'm');
  const std::string kept = vrx_regerror(message.c_str());
  EXPECT_GT(kept.size(), 100U);
  EXPECT_TRUE(message.starts_with(kept));
  EXPECT_STREQ("short", vrx_regerror("short"));
}

}  // namespace
}  // namespace vstring_test
