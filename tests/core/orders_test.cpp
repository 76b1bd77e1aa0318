// Orders of words, and sorting.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/check.h"
#include "support/direct.h"
#include "support/fingerprint.h"

namespace vstring_test {
namespace {

int sign(int n) { return n < 0 ? -1 : n > 0 ? 1 : 0; }

TEST(Orders, Lexicographic) {
  Check({
      {R"(lex("ab", "abc"), lex("b", "abc"), lex("", ""), lex("a", "\351"))", "-1, 1, 0, -1"},
      {R"(lex("a", "c", "cba"), lex("ax", "ax", "q"), lex("a", "ab", ""))", "1, 0, -1"},
      {R"(lex("a", "c", "abcba"))", "error: repeated character `\"b\"' detected in support"},
      {R"(revlex("ab", "b"), revlex("ba", "ca"), revlex("xb", "ya"), revlex("a", "\351"))",
       "0, -1, 1, 1"},
      {R"(revlex("", ""), revlex("", "a"), revlex("a", ""), revlex("", "a", "x"))", "0, -1, 1, -1"},
      {R"(revlex("ba", "ca", "x"), revlex("a", "xb", "x"), revlex("xb", "a", "x"))", "0, -1, 1"},
      {R"(revlex("xab", "xcb", "ca"), revlex("xab", "xab", ""))", "1, 0"},
      {R"(shortlex("b", "abc"), shortlex("b", "a"), shortlex("ab", "c", ""))", "-1, 1, 1"},
      {R"(shortlex("a", "c", "ca"), shortrevlex("ab", "b"), shortrevlex("ab", "ba"))", "1, 1, 1"},
      {R"(shortrevlex("", ""), shortrevlex("xab", "xcb", "ca"), shortrevlex("ab", "b", "x"))",
       "0, 1, 1"},
      {R"(shortlex("a", "ab", "aa"))", "error: repeated character `\"a\"' detected in support"},
  });
}

TEST(Orders, Weighted) {
  Check({
      {R"(wslo("aa", "b", ["a" = 1, "b" = 3]), wslo("ab", "ba", [`ax` = 1]))", "-1, -1"},
      {R"(wslo("b", "a", ["a" = 2147483647]), wslo("", "x", []), wslo("aaa", "b", ["a" = 2147483647]))",
       "-1, -1, 1"},
      {R"(wslo("\351", "b", ["\351" = 5, "b" = 1]))", "-1"},
      {R"(wreathorder("ab", "ba", ["a" = 1, "b" = 2]), wreathorder("xa", "xb", ["a" = 1]))",
       "1, 1"},
      {R"(wreathorder("xa", "xb", []), wreathorder("b", "ab", ["b" = 9]), wreathorder("", "", []))",
       "-1, -1, 0"},
      {R"(wreathorder("a", "\351", ["a" = 0]), wreathorder("ab", "b", []))", "-1, 1"},
      {R"(wslo("a", "b", ["a" = 1, 7, 8 = 9]))", "error: expecting a list of equations"},
      {R"(wslo("a", "b", [8 = 9]))", "error: left side of equations must be strings"},
      {R"(wslo("a", "b", ["" = x]))",
       "error: left hand sides of equations must be non-empty strings (characters)"},
      {R"(wslo("a", "b", ["a" = 2147483648]))",
       "error: right sides of equations must be (small) integers"},
      {R"(wslo("a", "b", ["b" = 1, "a" = -2]))",
       "error: right hand sides of equations must be non-negative, but got -2 for the 2nd "
       "equation"},
      {R"(wslo("a", "b", ["a" = 0, "ab" = 1]))", "error: repeated character `\"a\"' found"},
      {R"(wslo("a", "b", ["a" = 1, "a" = -1]))",
       "error: right hand sides of equations must be non-negative, but got -1 for the 2nd "
       "equation"},
  });
}

// The list object read last is kept, and asked for again by identity; a refused one replaces
// nothing.
TEST(Orders, WeightsAreRemembered) {
  VelmorHeap* const heap = session().heap();
  const auto weighs = [](HostObject list) { return call(vstring_wslo, {"b", "aa", list}); };
  HostObject lists[3];
  for (int i = 0; i < 3; ++i) velmor_root(heap, lists[i] = list({equation("a", 5 * (i - 1))}));
  const auto [refused, light, heavy] = lists;
  vstringRelease(velmor_table(heap));
  const std::size_t before = velmor_protected_count(heap);
  EXPECT_EQ("1", weighs(light));
  EXPECT_EQ("-1", weighs(heavy));
  EXPECT_EQ(before + 1, velmor_protected_count(heap));
  // Changed behind the library's back, the same object is not read again ...
  const VelmorCommand change = [](const HostTable* host, HostObject argseq) {
    host->HostListAssign(velmor_element(argseq, 1), 1, velmor_element(argseq, 2));
    return host->HostNull();
  };
  call(change, {heavy, velmor_element(light, 1)});
  EXPECT_EQ("-1", weighs(heavy));
  EXPECT_EQ("error: ", weighs(refused).substr(0, 7));
  EXPECT_EQ("-1", weighs(heavy));
  // ... until another list has come in between.
  weighs(light);
  EXPECT_EQ(before + 1, velmor_protected_count(heap));
  EXPECT_EQ("1", weighs(heavy));
  vstringRelease(velmor_table(heap));
  for (const HostObject list : lists) velmor_unroot(heap, list);
}

TEST(Orders, AgreeWithTheirDefinitions) {
  const std::vector<std::string> words = all_words("aB\351", 4);
  std::string walks;
  for (const std::string& s : words) {
    for (const std::string& t : words) {
      const int order = sign(s.compare(t));  // unsigned bytes
      const int shorter = s.size() < t.size() ? -1 : s.size() > t.size() ? 1 : 0;
      const std::string s_back(s.rbegin(), s.rend()), t_back(t.rbegin(), t.rend());
      std::string s_low = s, t_low = t;
      std::replace(s_low.begin(), s_low.end(), 'B', 'b');
      std::replace(t_low.begin(), t_low.end(), 'B', 'b');
      EXPECT_EQ(std::to_string(order), call(vstring_lex, {s, t})) << s << t;
      EXPECT_EQ(std::to_string(shorter != 0 ? shorter : order), call(vstring_shortlex, {s, t}));
      EXPECT_EQ(call(vstring_rrpo, {s_back, t_back}), call(vstring_lrpo, {s, t})) << s << t;
      EXPECT_EQ(order <= 0, truth(vstring_compare, {s, t})) << s << t;
      EXPECT_EQ(s_low <= t_low, truth(vstring_compareci, {s, t})) << s << t;
      walks += call(vstring_rrpo, {s, t});
    }
  }
  // The recursive path order is defined by its walk alone: all answers as they are known.
  EXPECT_EQ(10583204577084095685U, fingerprint(walks));
}

TEST(Orders, RecursivePaths) {
  Check(
      {{R"(rrpo("", ""), rrpo("a", ""), rrpo("", "a"), rrpo("a", "b"), rrpo("b", "a"))",
        "0, 1, -1, -1, 1"},
       {R"(rrpo("ab", "ba"), rrpo("aab", "b"), rrpo("ba", "b"), rrpo("bca", "cb"), lrpo("ab", "ba"))",
        "-1, 1, 1, -1, 1"}});
}

TEST(Orders, Sorting) {
  for (const std::size_t n :
       {0U, 1U, 2U, 5U, 63U, 64U, 65U, 128U, 129U, 300U, 8189U, 8190U, 9001U}) {
    std::string bytes;
    for (std::size_t i = 0; i < n; ++i) bytes += static_cast<char>(1 + (i * i + 7 * i) % 255);
    std::string sorted = bytes;
    std::sort(sorted.begin(), sorted.end(), [](unsigned char a, unsigned char b) { return a < b; });
    EXPECT_EQ(sorted, text(vstring_sort, {bytes})) << n;
    EXPECT_EQ(sorted == bytes, truth(vstring_issorted, {bytes})) << n;
    EXPECT_TRUE(truth(vstring_issorted, {sorted})) << n;
    for (const std::size_t i : {std::size_t{1}, n / 2, n - 1}) {
      if (i == 0 || i >= n || sorted[i - 1] == sorted[0]) continue;
      std::string descent = sorted;
      descent[i] = sorted[0];
      EXPECT_FALSE(truth(vstring_issorted, {descent})) << n;
    }
    std::string exported(n + 2, '#');
    SortString(exported.data(), bytes.data(), static_cast<std::int64_t>(n));
    EXPECT_EQ(sorted + '\0' + '#', exported);
  }
  Check({
      {R"(sort("banana"), sort("b\351a"), sort(`a`), sort(""))", R"("aaabnn", "ab\351", a, "")"},
      {R"(issorted("aab"), issorted("aba"), issorted("a\351"), issorted(""))",
       "true, false, true, true"},
      {R"(compare("abd", "abc"), compareci("ABC", `abc`))", "false, true"},
  });
}

}  // namespace
}  // namespace vstring_test
