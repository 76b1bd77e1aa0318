// Texts of a gigabyte, and of more bytes than 31 bits count: 16 megabytes in the short tier.
#include <gtest/gtest.h>

#include "support/check.h"
#include "support/figures.h"

namespace vstring_test {
namespace {

TEST(LargeTexts, AreAnsweredRight) {
  const std::size_t n = std::size_t{1} << (long_tier() ? 30 : 24);
  const auto number = [](std::size_t value) { return std::to_string(value); };
  evaluate("x := repeat(\"abcdefgh\", " + number(n / 8) + ")");
  evaluate("y := take(x, " + number(n / 2) + ")");
  evaluate("z := join([x, x, \"0123456789ABCDEF\"], \"\")");
  const std::pair<std::string, std::string> rows[] = {
      {"searchx(\"hgf\", x), searchx(\"z\", cap(x, \"\", \"z\"))", "[], " + number(n + 1)},
      {"substr(tr(\"ab\", \"ba\", x), -8 .. -1)", "\"bacdefgh\""},
      {"take(uppercase(x), 8), hd(lowercase(uppercase(x)), x)", "\"ABCDEFGH\", 0"},
      {"size(split(cap(x, \",,\", \",b\"), \",\"))", "4"},
      {"take(reverse(x), 9), hd(reverse(reverse(x)), x)", "\"hgfedcbah\", 0"},
      {"digest(x)", long_tier()
                        ? "\"2a2fff1eb8f56c7ab1578d08ea9a3c7b6ef5d4a81bb07a08e330fb6f87f9c6a3\""
                        : "\"ed7db4b1bd2118e7485386bd419666e240e34940a1a1e42dd118a5bbf76acbd9\""},
      {"period(x), period(cap(x, \"\", \"z\"))", "8, " + number(n + 1)},
      {"length(encode(y, base64)), hd(decode(encode(y, base64), base64), y)",
       number((n / 2 + 2) / 3 * 4) + ", 0"},
      {"suffixarray(take(x, " + number(n / 4) + "))[1]", number(n / 4 - 7)},
      {"length(z), strchr(\"0\", z)", number(2 * n + 16) + ", " + number(2 * n + 1)},
      {"searchx(\"DEF\", z), numboccur(z, \"F\"), length(reverse(z))",
       number(2 * n + 14) + ", 1, " + number(2 * n + 16)},
  };
  for (const auto& [call, expected] : rows) {
    EXPECT_EQ(expected, evaluate(call)) << call;
    velmor_collect(session().heap());
    ++figure("calls_on_large_texts");
  }
  for (const char* const name : {"x", "y", "z"}) evaluate(std::string(name) + " := '" + name + "'");
  velmor_collect(session().heap());
}

}  // namespace
}  // namespace vstring_test
