// Letters chosen, shortened, left out, and without their marks.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

TEST(Letters, ByDefinition) {
  for (const std::string& s : all_words("ab\377", 5)) {
    const std::set<unsigned char> letters(s.begin(), s.end());
    ASSERT_EQ(printed(std::string(letters.begin(), letters.end())), call(vstring_support, {s}));
    for (const std::string chars : {"", "a", "\377b", "\1ab\377"}) {
      std::string squeezed;
      std::string deleted;
      for (const char c : s) {
        const bool is_in = chars.find(c) != chars.npos;
        if (!is_in) deleted += c;
        if (!is_in || squeezed.empty() || squeezed.back() != c) squeezed += c;
      }
      ASSERT_EQ(printed(deleted), call(vstring_delete, {s, chars}));
      ASSERT_EQ(printed(squeezed), call(vstring_squeeze, {s, chars}));
      if (chars.size() == 4) {
        ASSERT_EQ(printed(squeezed), call(vstring_squeeze, {s}));
      }
    }
  }
}

TEST(Letters, ValuesAndRefusals) {
  Check({
      {R"(support(""), support("\377a\001a"), delete("", "abc"), delete(banana, ""))",
       R"("", "\001a\377", "", banana)"},
      {R"(squeeze("aabbbc"), squeeze("aab", ""), squeeze("abab", "ab"), squeeze("\377\377"))",
       R"("abc", "aab", "abab", "\377")"},
      {R"(unaccent("caf\303\251"), unaccent("cafe\314\201"), unaccent("\314\201e"))",
       R"("cafe", "cafe", "\314\201e")"},
      {R"(unaccent("a\303\2273"), unaccent("caf\351", "latin1"), unaccent("\303\251", latin1))",
       R"("a\303\2273", "cafe", "A\251")"},
      {R"(unaccent("\303"), unaccent("x\341\270"), unaccent("\303\303\251"), unaccent("e\314"))",
       R"("\303", "x\341\270", "\303e", "e\314")"},
      // marks in a row, behind what has become a letter, behind what has not
      {R"(unaccent("\303\251\314\201\315\257o"), unaccent("1\314\201"), unaccent("\307\206\314\201"))",
       R"("eo", "1\314\201", "\307\206\314\201")"},
      {R"(unaccent("\307\275\341\272\233\341\272\236\305\211\314\201"))", R"("aesSS'n")"},
      {R"(unaccent("\306\200\311\220\341\273\277\341\274\200"))",
       R"("\306\200\311\220\341\273\277\341\274\200")"},
      {R"(unaccent("\336\337\327\367\277\377", "latin1"))", R"("THss\327\367\277y")"},
  });
  CheckIdentity({
      {"abc", R"(support(x); squeeze(x); delete(x, "z"); unaccent(x); unaccent(x, "latin1"))", "",
       R"(delete(x, "b"))"},
      {"aab", R"(squeeze(x, "b"))", "", "support(x); squeeze(x)"},
  });
  CheckRefusals({
      {"unrecognised charset `\"ascii\"'", R"(unaccent("x", "ascii"))"},
      {"unrecognised charset `Latin1'", R"(unaccent("x", Latin1))"},
  });
}

}  // namespace
}  // namespace vstring_test
