// Heavy calls of every command: how their cost grows, and what they do when memory or the host
// fail.
#include "support/heavy_calls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <set>

#include "lexiva/commands.h"
#include "lexiva/methods.h"
#include "support/check.h"
#include "support/figures.h"
#include "support/instructions.h"
#include "support/session.h"

namespace vstring_test {
namespace {

using Calls = std::vector<std::string>;

bool has_call(const Calls& calls, const std::string& command) {
  return std::any_of(calls.begin(), calls.end(), [&](const std::string& call) {
    const std::size_t at = call.find(command + "(");
    return at == 0 || (at != call.npos && std::isalnum(call[at - 1]) == 0);
  });
}

// The help says of most commands that they are linear: those are measured, but for these, whose
// words cannot be long.
const std::set<std::string> kShort = {"porter", "lancaster", "pstem", "prestem", "stem", "syllen"};

TEST(HeavyCalls, AreOfEveryCommand) {
  const Calls linear = linear_calls(100);
  Calls all = other_calls();
  for (const Calls& more : {linear, regex_calls(100)})
    all.insert(all.end(), more.begin(), more.end());
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands) {
      const velmor::lexiva::Method* const method = velmor::lexiva::method_of(command.name);
      if (method == nullptr || method->cost == "constant") continue;
      const bool is_linear =
          method->cost.starts_with("linear in the texts") && !kShort.contains(command.name);
      EXPECT_TRUE(has_call(is_linear ? linear : all, command.name)) << command.name;
    }
  }
}

// Each host operation and each allocation in turn.
TEST(HeavyCalls, SurviveFailures) {
  constexpr std::size_t kSize = 9000;  // beyond what small answers are built in
  for (const Calls& calls : {linear_calls(kSize), regex_calls(kSize), other_calls()}) {
    for (const std::string& call : calls) {
      if (never_the_same(call)) continue;
      const std::string fallback = call.starts_with("period(")
                                       ? evaluate("1 + length" + call.substr(6))
                                   : call.starts_with("borderlen(") ? "-1"
                                                                    : "";
      const std::string answer = evaluate(call);
      EXPECT_FALSE(answer.starts_with("error")) << call << answer;
      Check({{call, answer, fallback}}, long_tier() ? 64 : 8);
    }
  }
}

constexpr std::size_t kParts = 4;  // which may be measured side by side

// Twice the input takes at most 2.1 times the instructions. Where an allocator's steps show, they
// no longer do for longer texts.
void check_growth(std::size_t n, Calls (*calls_of)(std::size_t), std::size_t part) {
  std::map<std::size_t, Calls> calls;
  const auto call = [&](std::size_t size, std::size_t i) {
    if (calls[size].empty()) calls[size] = calls_of(size);
    return calls[size][i];
  };
  for (std::size_t i = part; i < calls_of(1).size(); i += kParts) {
    const auto make = [&](std::size_t size) { return "x := " + call(size, i) + ":"; };
    double ratio = growth(make, n);
    if (ratio > 2.1) ratio = growth(make, 8 * n);
    EXPECT_LE(ratio, 2.1) << call(n, i);
    ++figure("growths");
    figure("greatest_growth") = std::max(figure("greatest_growth"), ratio);
  }
}

class Linear : public testing::TestWithParam<std::size_t> {};
INSTANTIATE_TEST_SUITE_P(LongTier, Linear, testing::Range(std::size_t{0}, kParts));

TEST_P(Linear, Commands) { check_growth(100'000, linear_calls, GetParam()); }

// Ten times as long, since some are refused after little more than a scan.
TEST_P(Linear, RegularExpressions) { check_growth(1'000'000, regex_calls, GetParam()); }

// a, aa, aaa, ... of n bytes in all.
TEST(LinearLongTier, ManyPatterns) {
  const auto powers = [](std::size_t n) {
    std::string items = "\"a\"";
    const auto longest = static_cast<std::size_t>(std::sqrt(2.0 * static_cast<double>(n)));
    for (std::size_t i = 2; i <= longest; ++i)
      items += ", repeat(\"a\", " + std::to_string(i) + ")";
    return "search([" + items + "], \"b\")";
  };
  EXPECT_LE(growth(powers, 100'000), 2.1);
}

}  // namespace
}  // namespace vstring_test
