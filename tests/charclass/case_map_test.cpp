// Case maps, capitalisation, translation.
#include <gtest/gtest.h>

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

// Long texts go through vector code and the heap.
TEST(CaseMaps, LongTexts) {
  std::string mixed, small, capitals, capitalised, swapped;
  for (int i = 0; mixed.size() < 9000; ++i) {
    const int c = 1 + i % 255;
    const bool lower = c >= 'a' && c <= 'z';
    const bool upper = c >= 'A' && c <= 'Z';
    mixed += static_cast<char>(c);
    small += static_cast<char>(upper ? c + 32 : c);
    capitals += static_cast<char>(lower ? c - 32 : c);
    const bool begins = c == '0' || c == 'A' || c == 'a';
    capitalised += static_cast<char>(begins && lower ? c - 32 : !begins && upper ? c + 32 : c);
    swapped += static_cast<char>(c == 'x' ? 'y' : c == 'y' ? 'x' : c);
  }
  for (const std::size_t n : {1U, 31U, 32U, 33U, 300U, 8188U, 8189U, 8190U, 8191U, 9000U}) {
    const std::string t = mixed.substr(0, n);
    EXPECT_EQ(small.substr(0, n), text(vstring_lowercase, {t}));
    EXPECT_EQ(capitals.substr(0, n), text(vstring_uppercase, {t}));
    EXPECT_EQ(capitalised.substr(0, n), text(vstring_capitalise, {t}));
    EXPECT_EQ(swapped.substr(0, n), text(vstring_tr, {"xy", "yx", t}));
  }
}

}  // namespace
}  // namespace vstring_test
