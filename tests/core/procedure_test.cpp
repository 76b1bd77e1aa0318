// Procedures over the letters of strings.
#include <gtest/gtest.h>

#include "support/direct.h"

namespace vstring_test {
namespace {

TEST(Procedures, Values) {
  Check({
      {R"(map(ord, ""), map(c -> cap(c, "<", ">"), ab, 7))", R"("", "<a><b>")"},
      {R"(filter(isalpha, ""), filter(c -> isvowel(c), banana), reject(isvowel, "banana"))",
       R"("", "aaa", "bnn")"},
      {R"(foldl(insert, "x", ""), foldr(overlap, 7, ""), foldl(compare, "a", "b"))",
       R"("x", 7, true)"},
      {R"(foldl(issuffix, "b", "b"), foldl((r, c) -> [r, c], [], "ab"))",
       R"(true, [[[], "a"], "b"])"},
      {R"(foldr((c, r) -> [c, r], x, "ab"))", R"(["a", ["b", x]])"},
      {R"(groupby(lowercase, "aAbB"), groupby(ord, ""), groupby(ord, "aab\377\377"))",
       R"(["aA", "bB"], [], ["aa", "b", "\377\377"])"},
      {R"(tabulate(char, 3), tabulate(char, 0))", R"("\001\002\003", "")"},
      // What waits lies still while others work, and memory for long results comes and goes.
      {R"(map(c -> map(d -> cap(c, d, reverse(c)), "xy"), "ab"))", R"("xaayaaxbbybb")"},
      {R"(length(map(c -> repeat(c, 5000), "abc")), length(filter(c -> true, repeat("ab", 6000))))",
       "15000, 12000"},
  });
}

TEST(Procedures, Refusals) {
  CheckRefusals({
      {"first argument must be a procedure",
       R"(map("f", 7); filter(7, 7); reject([f], "a"); foldl({f}, 2, "a"); foldr(f = g, 1, 2); )"
       R"(groupby(1 .. 2, "a"); tabulate(-123456789012345678901234567890, "a"))"},
      {"second argument must be a string",
       R"(map(f, 7); filter(f, [f]); reject(f, 1); groupby(f, 1))"},
      {"third argument must be a string", R"(foldl(f, 1, 2); foldr(f, 1, 2))"},
      {"second argument must be non-negative", "tabulate(f, -1)"},
      {"second argument must be a 32-bit integer", "tabulate(f, 2147483648); tabulate(f, x)"},
      {"expecting 2 arguments, but got 1", "map(f); filter(f); reject(7); groupby(f); tabulate(f)"},
      {"expecting 3 arguments, but got 2", R"(foldl(f, "a"); foldr(1, 2))"},
      {"procedure must return a string, but returned 97", R"(map(ord, "ab"))"},
      {"procedure must return true or false, but returned 97",
       R"(filter(ord, "a"); reject(ord, "a"))"},
      {"procedure must return true or false, but returned FAIL", R"(filter(c -> FAIL, "a"))"},
      {"procedure must return a string or an integer, but returned [\"a\"]",
       R"(groupby(explode, "ab"))"},
      {"procedure must return a string, but returned [\"\\001\"]",
       "tabulate(i -> explode(char(i)), 2)"},
      {"integer argument is too large", "tabulate(char, 300)"},
  });
}

}  // namespace
}  // namespace vstring_test
