// Every method of matching against the reference matcher, exhaustively on small patterns.
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "bytes/cpu.h"
#include "search/regex_comparison.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

void compare(const std::string& pattern, const std::vector<std::string>& texts,
             std::size_t steps = SIZE_MAX) {
  const reference::Regex expected(pattern);
  const Compiled compiled(pattern);
  if (!expected.error().empty()) {
    ASSERT_EQ(nullptr, compiled.regex) << pattern;
    ASSERT_EQ(expected.error(), vrx_regerror(nullptr)) << pattern;
    return;
  }
  ASSERT_NE(nullptr, compiled.plan) << pattern;
  for (const std::string& text : texts) {
    ASSERT_EQ("", difference(compiled, expected, text, "<&|\\1|\\2>", steps)) << pattern;
  }
}

// All token sequences with at most so many atoms, operators and parentheses.
void enumerate(const std::string& prefix, int atoms, int operators, int parentheses,
               const std::function<void(const std::string&)>& visit) {
  visit(prefix);
  const auto go_on = [&](const char* const* tokens, int a, int o, int p) {
    for (; a >= 0 && o >= 0 && p >= 0 && *tokens != nullptr; ++tokens)
      enumerate(prefix + *tokens, a, o, p, visit);
  };
  constexpr const char* kAtoms[] = {"a", "b", ".", "^", "$", "[ab]", "[^a]", nullptr};
  constexpr const char* kOperators[] = {"*", "+", "?", "|", nullptr};
  constexpr const char* kParentheses[] = {"(", ")", nullptr};
  go_on(kAtoms, atoms - 1, operators, parentheses);
  go_on(kOperators, atoms, operators - 1, parentheses);
  go_on(kParentheses, atoms, operators, parentheses - 1);
}

// In parts, each within a minute or two.
class RegexOracle : public testing::TestWithParam<std::size_t> {};
constexpr std::size_t kParts = 8;
#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kLongTierShare = 10;  // every tenth pattern: still half an hour's work
#else
constexpr std::size_t kLongTierShare = 1;
#endif

TEST_P(RegexOracle, AllSmallPatterns) {
  const std::vector<std::string> texts = all_words("ab", 6);
  const std::size_t stride = kParts * (long_tier() ? kLongTierShare : 101);
  std::size_t number = GetParam();
  enumerate("", 3, 2, 2, [&](const std::string& pattern) {
    if (++number % stride == 0 && !HasFatalFailure()) compare(pattern, texts);
  });
}

INSTANTIATE_TEST_SUITE_P(Parts, RegexOracle, testing::Range(std::size_t{0}, kParts));

TEST(RegexOracleAtRandom, LongerPatterns) {
  std::mt19937 random(20261121);
  const auto below = [&](std::size_t n) { return random() % n; };
  constexpr const char* kTokens[] = {"a", "b", "c", "ab", ".", "[ab]", "[^b]", "^", "$",
                                     "(", "(", ")", ")",  "|", "*",    "+",    "?", "\\a"};
  const int patterns = long_tier() ? 200000 : 6000;
  for (int i = 0; i < patterns && !HasFatalFailure(); ++i) {
    std::string pattern;
    int depth = 0;
    for (std::size_t n = 1 + below(14); n > 0; --n) {
      const std::string token = kTokens[below(std::size(kTokens))];
      if (token == ")" && depth == 0) continue;
      depth += token == "(" ? 1 : token == ")" ? -1 : 0;
      pattern += token;
    }
    pattern.append(static_cast<std::size_t>(depth), ')');
    std::vector<std::string> texts(4);
    for (std::string& text : texts) {
      for (std::size_t n = below(16); n > 0; --n) text += static_cast<char>('a' + below(3));
    }
    compare(pattern, texts);
  }
}

// Texts in which most places are passed over: by what a match begins with, by what every match
// contains and what it can have ahead of that; runs that need not be tried shorter. With the vector
// kernels and without.
TEST(RegexOracleAtRandom, SparseTexts) {
  constexpr const char* kPatterns[] = {"cab",
                                       "[ab]c",
                                       "a|bc|cab",
                                       "[a-c]+x",
                                       "([a-c]+) *\\(",
                                       "x[^y]*y",
                                       "(a|b)+x(c|y)*",
                                       "a+(b|c)$",
                                       "[b-x]y|a\\(x",
                                       "(ab?c?)+[xy]",
                                       "[ab]*x+[ab]*",
                                       "(a*x|b)y",
                                       "((a|b)*c)*x",
                                       "a(b|c)*x.*y",
                                       "[abc]+x[abc]+",
                                       "x*ab",
                                       "(a|b|c|x|y)y+",
                                       "^a|(b|c)x|[xy]a",
                                       "(.*)x(.*)y",
                                       "b.?.?x|a",
                                       "(xy)+(a|b)",
                                       "a[abc]*",
                                       "[a-y]+ ",
                                       "(a|^)b+c",
                                       "x$|y+a",
                                       "a.b",
                                       "[ab].x(y|a)",
                                       "\\(a\\)[^x]*",
                                       ".b(a|c).x",
                                       "x.[ab]..y",
                                       "([a-z]+ )+xy",
                                       "[a-c]*bc[xy]",
                                       "[a-z ]*x[a-c ]*$",
                                       "[a-z][a-z][a-z][a-z](a|bc)[a-y]"};
  constexpr const char* kAlphabets[] = {"abcxy (", "        abcxy(", "abcabcabc x", "xxxxxxxxy"};
  std::mt19937 random(20261121);
  const int rounds = long_tier() ? 400 : 12;
  for (int i = 0; i < rounds && !HasFatalFailure(); ++i) {
    vstring::plain_kernels_only = i % 3 == 2;
    std::vector<std::string> texts;
    for (const std::string_view alphabet : kAlphabets) {
      std::string& text = texts.emplace_back(random() % 200, ' ');
      for (char& c : text) c = alphabet[random() % alphabet.size()];
    }
    for (const char* const pattern : kPatterns) compare(pattern, texts, 20000);
  }
  vstring::plain_kernels_only = false;
}

}  // namespace
}  // namespace vstring_test
