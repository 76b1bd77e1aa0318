// Orders of words, and sorting.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/check.h"
#include "support/direct.h"

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

// The list object read last is kept, and asked for again by identity; a refused one leaves nothing.
TEST(Orders, WeightsAreRemembered) {
  VelmorHeap* const heap = session().heap();
  const auto weighs = [&](HostObject list) {
    return call(vstring_wslo, {velmor_string(heap, "b"), velmor_string(heap, "aa"), list});
  };
  const auto weight_of_a = [&](int weight) {
    const HostObject equation =
        velmor_equation(heap, velmor_string(heap, "a"), velmor_integer(heap, weight));
    const HostObject list = velmor_list(heap, 1, &equation);
    velmor_root(heap, list);
    return list;
  };
  const HostObject light = weight_of_a(0);
  const HostObject heavy = weight_of_a(5);
  const HostObject refused = weight_of_a(-1);
  weighs(refused);
  const std::size_t before = velmor_protected_count(heap);
  EXPECT_EQ("1", weighs(light));
  EXPECT_EQ("-1", weighs(heavy));
  EXPECT_EQ(before + 1, velmor_protected_count(heap));
  // Changed behind the library's back, the same object is not read again ...
  static HostObject changed, element;
  changed = heavy;
  element = velmor_element(light, 1);
  const VelmorCommand change = [](const HostTable* host, HostObject) {
    host->HostListAssign(changed, 1, element);
    return host->HostNull();
  };
  call(change, {});
  EXPECT_EQ("-1", weighs(heavy));
  // ... until another list has come in between.
  EXPECT_NE("", weighs(refused));
  EXPECT_EQ(before, velmor_protected_count(heap));
  EXPECT_EQ("1", weighs(heavy));
  weighs(refused);
  for (const HostObject list : {light, heavy, refused}) velmor_unroot(heap, list);
}

// The recursive path walk, with indices as the definition has it.
int rrpo(const std::string& s, const std::string& t) {
  std::size_t i = 0, j = 0;
  int r = 0;
  while (i < s.size()) {
    if (j == t.size()) return 1;
    if (s[i] == t[j]) {
      ++i, ++j;
    } else if (s[i] < t[j]) {
      ++i, r = 1;
      if (i == s.size()) return -1;
    } else {
      ++j, r = -1;
    }
  }
  return j == t.size() ? r : -1;
}

TEST(Orders, AgreeWithTheirDefinitions) {
  const std::vector<std::string> words = all_words("aB\351", 4);
  for (const std::string& s : words) {
    for (const std::string& t : words) {
      const int order = sign(s.compare(t));  // unsigned bytes
      const int shorter = s.size() < t.size() ? -1 : s.size() > t.size() ? 1 : 0;
      const std::string s_back(s.rbegin(), s.rend()), t_back(t.rbegin(), t.rend());
      std::string s_low = s, t_low = t;
      std::replace(s_low.begin(), s_low.end(), 'B', 'b');
      std::replace(t_low.begin(), t_low.end(), 'B', 'b');
      EXPECT_EQ(order, integer(vstring_lex, {s, t})) << s << t;
      EXPECT_EQ(shorter != 0 ? shorter : order, integer(vstring_shortlex, {s, t})) << s << t;
      EXPECT_EQ(rrpo(s, t), integer(vstring_rrpo, {s, t})) << s << t;
      EXPECT_EQ(rrpo(s_back, t_back), integer(vstring_lrpo, {s, t})) << s << t;
      EXPECT_EQ(order <= 0, truth(vstring_compare, {s, t})) << s << t;
      EXPECT_EQ(s_low <= t_low, truth(vstring_compareci, {s, t})) << s << t;
    }
  }
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
