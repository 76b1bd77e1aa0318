// Arrangements, run lengths, morphisms, and the words of the textbooks.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

std::int64_t integer(std::size_t n) { return static_cast<std::int64_t>(n); }

TEST(Arrangements, EveryOneComesOnceInOrder) {
  for (const std::string& w : all_words("abc", 6)) {
    std::string next = w;
    const bool is_there = std::next_permutation(next.begin(), next.end());
    ASSERT_EQ(is_there ? printed(next) : "FAIL", call(vstring_nextperm, {w})) << w;
    std::string sorted = w;
    std::sort(sorted.begin(), sorted.end());
    ASSERT_EQ("true", call(vstring_isanagram, {w, sorted}));
    ASSERT_EQ(printed(w.size() % 3 == 0),
              call(vstring_isanagram, {w + "abb", sorted + (w.size() % 3 == 0 ? "bab" : "aab")}));
  }
}

TEST(Generators, DeBruijnAndLyndonWordsByDefinition) {
  for (const std::string letters : {"a", "ab", "abc", "abcd"}) {
    for (std::size_t n = 1; n <= (letters.size() == 2 ? 10 : 5); ++n) {
      std::vector<std::string> lyndon;
      std::string product;  // of those whose length divides n
      for (const std::string& w : [&] {
             auto words = all_words(letters, n);
             std::sort(words.begin(), words.end());
             return words;
           }()) {
        bool is_lyndon = !w.empty();
        for (std::size_t i = 1; i < w.size(); ++i) is_lyndon = is_lyndon && w < w.substr(i);
        if (is_lyndon && w.size() == n) lyndon.push_back(w);
        if (is_lyndon && n % w.size() == 0) product += w;
      }
      ASSERT_EQ(printed(product), call(vstring_debruijn, {letters, integer(n)})) << letters << n;
      ASSERT_EQ(printed(lyndon), call(vstring_lyndonwords, {letters, integer(n)})) << letters << n;
    }
  }
}

TEST(Generators, ChristoffelWordsByDefinition) {
  for (std::size_t p = 0; p < 20; ++p) {
    for (std::size_t q = 0; q < 20; ++q) {
      const std::size_t n = p + q;
      std::string word;
      for (std::size_t i = 1; i <= n; ++i) word += i * p / n > (i - 1) * p / n ? 'b' : 'a';
      ASSERT_EQ(printed(word), call(vstring_christoffel, {integer(p), integer(q)}));
    }
  }
}

TEST(Generators, InfiniteWordsByDefinition) {
  for (std::size_t n = 0; n < 300; n += n < 20 ? 1 : 37) {
    ASSERT_EQ(printed(fibonacci_word(n)), call(vstring_fibword, {integer(n)}));
    for (const std::string alphabet : {"ab", "abc", "abcbad"}) {
      std::string word;
      for (std::size_t i = 0; i < n; ++i) {
        std::size_t sum = 0;
        for (std::size_t rest = i; rest > 0; rest /= alphabet.size()) sum += rest % alphabet.size();
        word += alphabet[sum % alphabet.size()];
      }
      ASSERT_EQ(printed(word), call(vstring_thuemorse, {integer(n), alphabet}));
    }
  }
}

TEST(Arrangements, ValuesAndRefusals) {
  Check({
      {R"(isanagram("aab", "abb"), isanagram(Ab, "bA"), isanagram("", ""))", "false, true, true"},
      {R"(nextperm("abc"), nextperm("cba"), nextperm(""), nextperm("a\377\200"))",
       R"("acb", FAIL, FAIL, "\200a\377")"},
      {R"(rle(""), rle("\377\377"), rle(`aab`, 7))", R"([], [["\377", 2]], [["a", 2], ["b", 1]])"},
      {R"(morphism("abc", ["b" = ""]), morphism("", ["a" = "aa"], 1000))", R"("ac", "")"},
      {R"(morphism(xyz, []), morphism(ab, ["a" = b, "b" = a], 2), morphism("a", ["a" = "b"], 0))",
       R"(xyz, ab, "a")"},
      {R"(morphism("ab", ["a" = b, b = "a"], 3), morphism("abb", ["b" = "", "a" = "cb"], 1000))",
       R"("ba", "c")"},
      {R"(length(morphism("a", ["a" = "aa"], 14)))", "16384"},
  });
  CheckRefusals({
      {"second argument must be a list of equations",
       R"(morphism("a", {"a" = "b"}); morphism("a", "a" = "b"); morphism("a", [7 = 8, 9], x))"},
      {"left sides of equations must be one-byte strings",
       R"(morphism("a", ["ab" = "c"]); morphism("a", ["" = 5]); morphism("a", [7 = 8], x))"},
      {"right sides of equations must be strings", R"(morphism("a", ["a" = 7, 8 = 9], -1))"},
      {"repeated character `\"a\"' found", R"(morphism("a", ["a" = "b", a = "c"], x))"},
      {"third argument must be a 32-bit integer", R"(morphism("a", [], x))"},
      {"third argument must be non-negative", R"(morphism("a", ["a" = "aa"], -1))"},
      {"third argument is too large", R"(morphism("a", [], 1001))"},
      {"result would be too long",
       R"(morphism("a", ["a" = "aa"], 31); morphism("ab", ["a" = "aa", "b" = ""], 1000))"},
  });
}

TEST(Generators, ValuesAndRefusals) {
  Check({
      {R"(fibword(5, "01"), fibword(0, ab), fibword(2, "aa"), fibword(1))",
       R"("01001", "", "aa", "a")"},
      {R"(thuemorse(8), thuemorse(0), thuemorse(1, "xyz"))", R"("abbabaab", "", "x")"},
      {R"(christoffel(1, 0), christoffel(0, 2), christoffel(2, 2), christoffel(0, 0))",
       R"("b", "aa", "abab", "")"},
      {R"(christoffel(3, 5, "01"), debruijn("a", 2147483647), debruijn("ba", 2))",
       R"("00100101", "a", "bbaa")"},
      {R"(lyndonwords("a", 2147483647), lyndonwords(a, 1), lyndonwords("ba", 2))",
       R"([], ["a"], ["ba"])"},
      {R"(length(debruijn("01", 13)), debruijn("\377\001", 1))", R"(8192, "\377\001")"},
  });
  CheckRefusals({
      {"first argument must be non-negative", "fibword(-1, 7); thuemorse(-1); christoffel(-1, x)"},
      {"second argument must be non-negative", "christoffel(1, -1)"},
      {"second argument must have 2 bytes", R"(fibword(2147483647, "abc"); fibword(0, ""))"},
      {"second argument must have at least 2 bytes", R"(thuemorse(2147483647, "a"))"},
      {"third argument must have 2 bytes", R"(christoffel(1, 1, "abc"))"},
      {"first argument must not be empty", R"(debruijn("", x); lyndonwords("", 0))"},
      {"repeated character `\"b\"' found", R"(debruijn("abcba", x); lyndonwords("abcba", 0))"},
      {"second argument must be positive", R"(debruijn("a", 0); lyndonwords("a", 0))"},
      {"result would be too long",
       "fibword(2147483647); thuemorse(1073741825); christoffel(1073741824, 1); "
       R"(christoffel(2147483647, 2147483647); debruijn("01", 31); debruijn("abc", 2147483647); )"
       R"(lyndonwords("ab", 29); lyndonwords("abc", 2147483647))"},
  });
}

}  // namespace
}  // namespace vstring_test
