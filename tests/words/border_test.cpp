// Periods, borders and overlaps.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

bool has_period(const std::string& w, std::size_t p) {
  for (std::size_t i = 0; i + p < w.size(); ++i) {
    if (w[i] != w[i + p]) return false;
  }
  return true;
}

std::size_t smallest_period(const std::string& w) {
  std::size_t p = w.empty() ? 0 : 1;
  while (p < w.size() && !has_period(w, p)) ++p;
  return p;
}

std::size_t longest_border(const std::string& w) { return w.size() - smallest_period(w); }

// The length of the longest suffix of s that begins t.
std::size_t longest_overlap(const std::string& s, const std::string& t) {
  std::size_t length = std::min(s.size(), t.size());
  while (s.substr(s.size() - length) != t.substr(0, length)) --length;
  return length;
}

// The scan for a shorter t, with the borders of s.
std::size_t overlap_of_shorter(const std::string& s, const std::string& t) {
  std::size_t j = 0;
  for (std::size_t i = 0; i < s.size() && j < t.size(); ++i) {
    while (j > 0 && s[i] != t[j]) j = longest_border(s.substr(0, j));
    if (s[i] == t[j]) ++j;
  }
  return j;
}

void check_word(const std::string& w) {
  const std::size_t border = longest_border(w);
  ASSERT_EQ(smallest_period(w), integer(vstring_period, {w})) << w;
  ASSERT_EQ(border, integer(vstring_borderlen, {w})) << w;
  ASSERT_EQ(w.substr(w.size() - border), text(vstring_border, {w})) << w;
}

TEST(Borders, AllShortWordsByDefinition) {
  for (const auto& words : {all_words("ab", 14), all_words("abc", 9)}) {
    for (const std::string& w : words) {
      check_word(w);
      std::vector<std::int64_t> borders;
      for (std::size_t n = 1; n <= w.size(); ++n) {
        borders.push_back(static_cast<std::int64_t>(longest_border(w.substr(0, n))));
      }
      ASSERT_EQ(borders, integers(vstring_borderarray, {w})) << w;
    }
  }
}

// Around the length from which on the border array may be needed, and around 512 cells of it.
TEST(Borders, LongWords) {
  for (const std::size_t n : {499, 500, 501, 510, 511, 512, 1000}) {
    for (const std::string& w : sample_words(n)) {
      check_word(w);
      const auto borders = integers(vstring_borderarray, {w});
      ASSERT_EQ(w.size(), borders.size());
      for (const std::size_t i : {n / 3, n - 1}) {
        EXPECT_EQ(longest_border(w.substr(0, i + 1)), borders[i]) << w;
      }
      EXPECT_EQ(longest_overlap(w, w.substr(n / 2) + w),
                integer(vstring_overlap, {w, w.substr(n / 2) + w}));
    }
  }
}

TEST(Borders, OverlapOfAllShortPairs) {
  const auto words = all_words("ab", 7);
  for (const std::string& s : words) {
    for (const std::string& t : words) {
      const std::size_t expected =
          t.size() >= s.size() ? longest_overlap(s, t) : overlap_of_shorter(s, t);
      ASSERT_EQ(expected, integer(vstring_overlap, {s, t})) << s << ", " << t;
    }
  }
}

TEST(Borders, PeriodsOfAllShortWords) {
  VelmorHeap* const heap = session().heap();
  for (const std::string& w : all_words("ab", 8)) {
    for (std::size_t p = 1; p <= w.size() + 2; ++p) {
      const bool expected = p <= w.size() && has_period(w, p);
      const std::vector<HostObject> arguments = {
          velmor_string(heap, w.c_str()), velmor_integer(heap, static_cast<std::int64_t>(p))};
      ASSERT_EQ(expected ? "true" : "false", call(vstring_isperiod, arguments)) << w << ", " << p;
    }
  }
}

TEST(Borders, ValuesAndRefusals) {
  Check({
      {"period(\"\"), period(\"a\"), period(`abab`), period(\"\\377a\\377\")", "0, 1, 2, 2"},
      {"period()", "error: expecting one argument, but got 0"},
      {"period(7, \"a\")", "error: argument must be a string"},
      {"isperiod(\"abcabca\", 6), isperiod(\"ab\", 2), isperiod(\"ab\", 3), isperiod(\"\", 1)",
       "true, true, false, false"},
      {"isperiod(\"ab\")", "error: expecting 2 arguments, but got 1"},
      {"isperiod(1, 0)", "error: first argument must be a string"},
      {"isperiod(\"ab\", \"b\")", "error: second argument must be a 32-bit integer"},
      {"isperiod(\"ab\", 2147483648)", "error: second argument must be a 32-bit integer"},
      {"isperiod(\"ab\", 0)", "error: second argument must be positive"},
      {"border(\"\"), border(\"a\"), border(`aaaa`)", "\"\", \"\", \"aaa\""},
      {"border([])", "error: argument must be a string"},
      {"borderlen(\"abcab\", 7)", "2"},
      {"borderlen(1)", "error: argument must be a string"},
      {"borderarray(\"aabaa\"), borderarray(\"\")", "[0, 1, 0, 1, 2], []"},
      {"borderarray(1)", "error: argument must be a string"},
      {"overlap(\"abcd\", \"cdef\"), overlap(\"abcx\", \"abc\"), overlap(\"abc\", \"\")",
       "2, 3, 0"},
      {"overlap(\"\", \"abc\"), overlap(`aba`, \"ba\")", "0, 2"},
      {"overlap(\"a\")", "error: expecting 2 arguments, but got 1"},
      {"overlap(1, 2)", "error: first argument must be a string"},
      {"overlap(\"a\", 2)", "error: second argument must be a string"},
  });
}

// Only period and borderlen go on without memory for the border array, each in its own way.
TEST(Borders, WithoutMemory) {
  const std::string w = quoted(std::string(799, 'a') + "b");
  const std::string no_borders = "[" + periodic_word("0, ", 600 * 3 - 2) + "]";
  Check({
      {"period(" + w + ")", "800", "801"},
      {"borderlen(" + w + ")", "0", "-1"},
      {"border(" + w + ")", "\"\""},
      {"overlap(" + w + ", " + quoted(std::string(800, 'b')) + ")", "1"},
      {"borderarray(" + quoted("b" + std::string(599, 'a')) + ")", no_borders},
  });
}

}  // namespace
}  // namespace vstring_test
