// Every method of matching against the reference matcher, exhaustively on small patterns.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "search/regex/finder.h"
#include "search/regex/replace.h"
#include "search/regex_reference.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

using namespace vstring::regex;
using vstring::Bytes;

constexpr Method kMethods[] = {Method::automatic, Method::backtracking, Method::simulation,
                               Method::two_pass};

Bytes bytes_of(const std::string& text) {
  return {reinterpret_cast<const vstring::Byte*>(text.data()), text.size()};
}

class Compiled {
 public:
  explicit Compiled(const std::string& pattern) : regex(vrx_regcomp(pattern.c_str())) {
    if (regex != nullptr) plan = make_plan(*regex);
  }
  ~Compiled() {
    std::free(plan);
    std::free(regex);
  }
  Compiled(const Compiled&) = delete;
  Compiled& operator=(const Compiled&) = delete;
  VstringRegex* regex = nullptr;
  Plan* plan = nullptr;
};

// The groups of the first match; all unset when there is none.
reference::Slots find_by(const Plan& plan, const std::string& text, Method method) {
  Match match;
  match.clear();
  reference::Slots slots;
  slots.fill(-1);
  if (Finder(plan, bytes_of(text), method).find(0, match) == Found::yes)
    std::copy_n(match.slot, kSlots, slots.begin());
  return slots;
}

std::string replaced_by(const Plan& plan, const std::string& text, const std::string& replacement,
                        Method method) {
  Replacement changes;
  std::string result = "refused";
  if (changes.find(plan, bytes_of(text), bytes_of(replacement), method) == Scan::ok) {
    result.resize(changes.length());
    changes.write({reinterpret_cast<vstring::Byte*>(result.data()), result.size()});
  }
  changes.free();
  return result;
}

std::string split_by(const Plan& plan, const std::string& text, Method method) {
  vstring::Buffer<Cut> cuts;
  std::size_t rest = 0;
  if (find_cuts(plan, bytes_of(text), cuts, rest, method) != Scan::ok) return "refused";
  std::string result;
  for (const Cut& cut : cuts) result += text.substr(cut.start, cut.end - cut.start) + "/";
  return rest < text.size() ? result + text.substr(rest) + "/" : result;
}

void compare(const std::string& pattern, const std::vector<std::string>& texts) {
  const reference::Regex expected(pattern);
  const Compiled compiled(pattern);
  if (!expected.error().empty()) {
    ASSERT_EQ(nullptr, compiled.regex) << pattern;
    ASSERT_EQ(expected.error(), vrx_regerror(nullptr)) << pattern;
    return;
  }
  ASSERT_NE(nullptr, compiled.plan) << pattern;
  const std::string replacement = "<&|\\1|\\2>";
  for (const std::string& text : texts) {
    reference::Slots slots;
    if (!*expected.search(text, slots)) slots.fill(-1);
    const std::string replaced =
        reference::replace_all(expected, text, replacement).value_or("refused");
    std::string split = "refused";
    if (const auto pieces = reference::split(expected, text)) {
      split.clear();
      for (const std::string& piece : *pieces) split += piece + "/";
    }
    for (const Method method : kMethods) {
      const std::string where =
          pattern + " on " + text + ", method " + std::to_string(static_cast<int>(method));
      ASSERT_EQ(slots, find_by(*compiled.plan, text, method)) << where;
      ASSERT_EQ(replaced, replaced_by(*compiled.plan, text, replacement, method)) << where;
      ASSERT_EQ(split, split_by(*compiled.plan, text, method)) << where;
    }
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

TEST_P(RegexOracle, AllSmallPatterns) {
  const std::vector<std::string> texts = all_words("ab", 6);
  const std::size_t stride = kParts * (long_tier() ? 1 : 101);
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

}  // namespace
}  // namespace vstring_test
