// Periods, borders and overlaps.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

bool has_period(const std::string& w, std::size_t p) {
  for (std::size_t i = 0; i + p < w.size(); ++i) {
    if (w[i] != w[i + p]) return false;
  }
  return p <= w.size();
}

std::size_t smallest_period(const std::string& w) {
  std::size_t p = w.empty() ? 0 : 1;
  while (!has_period(w, p)) ++p;
  return p;
}

std::size_t longest_border(const std::string& w) { return w.size() - smallest_period(w); }

// The length of the longest suffix of s that begins t, when t is no shorter.
std::size_t overlap(const std::string& s, const std::string& t) {
  std::size_t length = s.size();
  while (s.substr(s.size() - length) != t.substr(0, length)) --length;
  return length;
}

void check_word(const std::string& w) {
  const std::size_t border = longest_border(w);
  ASSERT_EQ(printed(smallest_period(w)), call(vstring_period, {w})) << w;
  ASSERT_EQ(printed(border), call(vstring_borderlen, {w})) << w;
  ASSERT_EQ(printed(w.substr(w.size() - border)), call(vstring_border, {w})) << w;
}

void check_border_array(const std::string& w) {
  std::vector<std::size_t> borders;
  for (std::size_t n = 1; n <= w.size(); ++n) borders.push_back(longest_border(w.substr(0, n)));
  ASSERT_EQ(printed(borders), call(vstring_borderarray, {w})) << w;
}

TEST(Borders, AllShortWordsByDefinition) {
  for (const auto& words : {all_words("ab", 14), all_words("abc", 9)}) {
    for (const std::string& w : words) {
      check_word(w);
      check_border_array(w);
    }
  }
}

// Around the length from which on the border array may be needed, and around 512 cells of it.
TEST(Borders, LongWords) {
  for (const std::size_t n : {499U, 500U, 501U, 511U, 512U, 1000U}) {
    for (const std::string& w : sample_words(n)) {
      check_word(w);
      const std::string t = w.substr(n / 2) + w;
      ASSERT_EQ(printed(overlap(w, t)), call(vstring_overlap, {w, t}));
    }
  }
  for (const std::size_t n : {510U, 511U, 512U}) check_border_array(fibonacci_word(n));
}

TEST(Borders, AllShortPairs) {
  const auto words = all_words("ab", 7);
  for (const std::string& s : words) {
    for (const std::string& t : words) {
      if (t.size() < s.size()) continue;
      ASSERT_EQ(printed(overlap(s, t)), call(vstring_overlap, {s, t})) << s << ", " << t;
    }
    for (std::size_t p = 1; p <= s.size() + 2; ++p) {
      const auto period = static_cast<std::int64_t>(p);
      ASSERT_EQ(printed(has_period(s, p) && !s.empty()), call(vstring_isperiod, {s, period}))
          << s << ", " << p;
    }
  }
}

TEST(Borders, ValuesAndRefusals) {
  Check({
      {R"(period(""), period("a"), period(`abab`), period("\377a\377"))", "0, 1, 2, 2"},
      {R"(border(""), border("a"), border(`aaaa`))", R"("", "", "aaa")"},
      {R"(borderlen("abcab", 7), borderarray(""))", "2, []"},
      {R"(overlap("abcx", "abc"), overlap("abc", ""), overlap(`aba`, "ba"))", "3, 0, 2"},
  });
}

// Only period and borderlen go on without memory for the border array, each in its own way.
TEST(Borders, WithoutMemory) {
  const std::string w = quoted(std::string(799, 'a') + "b");
  Check({
      {"period(" + w + ")", "800", "801"},
      {"borderlen(" + w + ")", "0", "-1"},
      {"border(" + w + ")", "\"\""},
      {"overlap(" + w + ", " + quoted(std::string(800, 'a')) + ")", "0"},
      {"borderarray(" + quoted("b" + std::string(599, 'a')) + ")",
       printed(std::vector<std::size_t>(600))},
  });
}

}  // namespace
}  // namespace vstring_test
