// Case maps, capitalisation, translation.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>

#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

TEST(CaseMaps, Forms) {
  Check({
      {R"(lowercase("Hello W\311rld"), uppercase("Hello w\351rld"))",
       R"("hello w\311rld", "HELLO W\351RLD")"},
      {R"(lowercase(""), uppercase(Name))", R"("", "NAME")"},
      {R"(uppercase("abcd", 2 .. 3), uppercase("abcd", -1 .. -1), lowercase("ABCD", 1 .. 99))",
       R"("aBCd", "abcD", "abcd")"},
      {R"(lowercase("ABCD", 3 .. 2), lowercase("ABCD", 1 .. 1, 7), lowercase("AB", 7, 7))",
       R"("ABCD", "abcd", "ab")"},
  });
}

TEST(CaseMaps, CapitaliseAndTranslate) {
  Check({
      {R"(capitalise("hello wORLD"), capitalise(""), capitalise("x-ray 3COM a\351bc"))",
       R"("Hello World", "", "X-Ray 3com A\351Bc")"},
      {R"(capitalise("ab", 7), tr("abca", "xyzw", "aaa"), tr("", "", "abc"), tr("a", "xyz", `banana`))",
       R"("Ab", "xxx", "abc", "bxnxnx")"},
      {R"(tr("a\377", "\377a", "a\377b"), tr("a", "b", ""), tr("a", "b", "a", 7))",
       R"("\377ab", "", "b")"},
      {R"(tr("ab", "x", "a"))", "error: second argument must be as long as the first"},
  });
}

// All bytes, in texts that go through vector code.
TEST(CaseMaps, LongTexts) {
  std::string mixed, small, capitals, swapped;
  for (int i = 0; mixed.size() < 700; ++i) {
    const int c = 1 + i % 255;
    mixed += static_cast<char>(c);
    small += static_cast<char>(std::tolower(c));
    capitals += static_cast<char>(std::toupper(c));
    swapped += static_cast<char>(c == 'x' ? 'y' : c == 'y' ? 'x' : c);
  }
  // In the order of their codes, A and a stand where a word begins.
  const std::string capitalised =
      std::string(small).replace('A' - 1, 1, "A").replace('a' - 1, 1, "A");
  for (const std::size_t n : {1U, 31U, 32U, 33U, 300U, 700U}) {
    const std::string t = mixed.substr(0, n);
    EXPECT_EQ(small.substr(0, n), text(vstring_lowercase, {t}));
    EXPECT_EQ(capitals.substr(0, n), text(vstring_uppercase, {t}));
    EXPECT_EQ(swapped.substr(0, n), text(vstring_tr, {"xy", "yx", t}));
    EXPECT_EQ(capitalised.substr(0, std::min(n, 255UL)),
              text(vstring_capitalise, {t}).substr(0, 255));
  }
}

}  // namespace
}  // namespace vstring_test
