// Tallies, entropy, counts.
#include <gtest/gtest.h>

#include <map>

#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

// Short lists are sorted, longer ones looked up in a table that grows.
TEST(Statistics, TalliesOfLists) {
  for (const std::size_t n : {5U, 16U, 17U, 700U, 4000U}) {
    Values items;
    std::vector<std::string> order;
    std::map<std::string, std::size_t> counts;
    for (std::size_t i = 0; i < n; ++i) {
      const std::string text(1 + i % 11, static_cast<char>('a' + i * i % (n / 4 + 1) % 26));
      const std::string item = text + (i % 3 == 0 ? std::to_string(i * 7 % n) : "");
      items.emplace_back(item);
      if (++counts[item] == 1) order.push_back(item);
    }
    std::string expected;
    for (const std::string& item : order) {
      expected += (expected.empty() ? "" : ", ") + printed(item) + " = " + printed(counts[item]);
    }
    EXPECT_EQ("[" + expected + "]", call(vstring_tally, {list(items)}));
  }
}

TEST(Statistics, ValuesAndRefusals) {
  Check({
      {R"(tally("banana", 2), tally(abba, 9), tally("ab", 0))",
       R"(["a" = 3, "n" = 2], ["a" = 2, "b" = 2], [])"},
      {R"(tally(["to", "be", so, "to"]), tally(""), tally([]))",
       R"(["to" = 2, "be" = 1, "so" = 1], [], [])"},
      {R"(tally(["b", "", "a", "b", a, ""], 2))", R"(["b" = 2, "" = 2])"},
      {R"(entropy("abab"), entropy(aaaa), entropy(""), entropy("abcd"))", "1.0, 0.0, 0.0, 2.0"},
      {R"(wc(""), wc("a"), wc(" \t\351 "), wc("\n\nx y\n"))",
       "[0, 0, 0], [0, 1, 1], [0, 1, 4], [3, 2, 6]"},
  });
  CheckRefusals({
      {"first argument must be a string or a list of strings",
       R"(tally(5, x); tally({"a"}); tally(["a", 7]))"},
      {"second argument must be non-negative", R"(tally("ab", -1))"},
      {"second argument must be a 32-bit integer", R"(tally(["a"], "1"))"},
  });
}

}  // namespace
}  // namespace vstring_test
