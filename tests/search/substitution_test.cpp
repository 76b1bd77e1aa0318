// subst and substx: values, the estimate that cuts results short.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "search/substitution_reference.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

TEST(Substitution, Values) {
  Check({
      {R"(substx("aaa", "aa", ""), substx("aaa", "aa", "xyz"), substx("aaaaaaaaa", "aaaa", ""))",
       R"("", "xyza", "")"},
      {R"(subst("a\351b", "\351", ""), substx("aXa", "a", "aa"))", R"("ab", "aaXaa")"},
      {R"(subst("", "", "X"), substx("", "a", "X", surplus))", R"("", "")"},
  });
}

TEST(Substitution, ReturnsAShorterTextItself) {
  const std::string no_longer = "subst(x, \"\", \"ab\"); substx(x, \"\", \"ab\")";
  CheckIdentity(
      {{"", "subst(x, \"x\", \"ab\"); substx(x, \"ab\", \"ab\")", "", no_longer},
       {"ab", "subst(x, \"abc\", \"\"); substx(x, \"xyz\", \"ab\")", "",
        no_longer +
            "; subst(x, \"x\", \"\"); substx(x, \"ab\", \"ab\"); substx(x, \"xy\", \"\")"}});
}

TEST(Substitution, EveryShortCase) {
  for (const std::string& t : all_words("ab", 7)) {
    for (const std::string& pattern : all_words("ab", 3)) {
      for (const std::string replacement : {"", "a", "X", "XY", "XYZW"}) {
        ASSERT_EQ(naive_substx(t, pattern, replacement),
                  text(vstring_substx, {t, pattern, replacement}))
            << pattern << " in " << t << " by " << replacement;
        std::string once = t;
        const std::size_t at = pattern.empty() ? std::string::npos : t.find(pattern);
        if (at != std::string::npos) once.replace(at, pattern.size(), replacement);
        ASSERT_EQ(once, text(vstring_subst, {t, pattern, replacement}));
      }
    }
  }
}

// A multiple of 65536 occurrences counts as none.
TEST(Substitution, LongTexts) {
  for (const std::size_t n : {65535U, 65536U, 65537U, 131072U}) {
    const std::string a(n, 'a');
    for (const std::string pattern : {"a", "aa"}) {
      for (const std::string replacement : {"", "b", "bcd"}) {
        EXPECT_EQ(naive_substx(a, pattern, replacement),
                  text(vstring_substx, {a, pattern, replacement}));
      }
    }
    EXPECT_EQ("b" + a.substr(1), text(vstring_subst, {a, "a", "b"}));
  }
}

}  // namespace
}  // namespace vstring_test
