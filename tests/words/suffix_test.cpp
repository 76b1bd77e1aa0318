// Suffix arrays, factors, maximal repetitions, the Burrows-Wheeler transform.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

using Sizes = std::vector<std::size_t>;

bool comes_before(const std::string& s, const std::string& t) {
  return std::lexicographical_compare(s.begin(), s.end(), t.begin(), t.end(), [](char a, char b) {
    return static_cast<unsigned char>(a) < static_cast<unsigned char>(b);
  });
}

// The numbers below n, sorted by the texts that they stand for.
template <typename TextOf>
Sizes sorted(std::size_t n, TextOf text_of) {
  Sizes order;
  for (std::size_t i = 0; i < n; ++i) order.push_back(i);
  std::stable_sort(order.begin(), order.end(), [&](std::size_t i, std::size_t j) {
    return comes_before(text_of(i), text_of(j));
  });
  return order;
}

void check_suffixes(const std::string& w) {
  Sizes order = sorted(w.size(), [&](std::size_t i) { return w.substr(i); });
  for (std::size_t& i : order) ++i;
  ASSERT_EQ(printed(order), call(vstring_suffixarray, {w})) << w;
}

void check_transform(const std::string& w) {
  const auto rotation = [&](std::size_t i) { return w.substr(i) + w.substr(0, i); };
  std::string last;
  std::size_t row = 0;
  for (const std::size_t i : sorted(w.size(), rotation)) {
    last += rotation(i).back();
    if (i == 0) row = last.size();
  }
  ASSERT_EQ("[" + printed(last) + ", " + printed(row) + "]", call(vstring_bwt, {w})) << w;
  VelmorHeap* const heap = session().heap();
  ASSERT_EQ(printed(w),
            call(vstring_unbwt, {velmor_string(heap, last.c_str()),
                                 velmor_integer(heap, static_cast<std::int64_t>(row))}));
}

void check_factors(const std::string& w) {
  std::set<std::string> factors = {""};
  for (std::size_t i = 0; i < w.size(); ++i) {
    for (std::size_t n = 1; i + n <= w.size(); ++n) factors.insert(w.substr(i, n));
  }
  ASSERT_EQ(printed(factors.size()), call(vstring_factorcount, {w})) << w;
  for (std::size_t n = 0; n <= w.size() + 1; ++n) {
    const auto count = static_cast<std::size_t>(std::count_if(
        factors.begin(), factors.end(), [n](const std::string& u) { return u.size() == n; }));
    ASSERT_EQ(printed(count), call(vstring_factorcount, {w, static_cast<std::int64_t>(n)}));
  }
}

bool has_period(const std::string& w, std::size_t p) {
  return w.substr(p) == w.substr(0, w.size() - p);
}

void check_repetitions(const std::string& w) {
  std::vector<Sizes> runs;
  for (std::size_t i = 0; i < w.size(); ++i) {
    for (std::size_t p = 1; i + 2 * p <= w.size(); ++p) {
      if (i > 0 && w[i - 1] == w[i - 1 + p]) continue;
      std::size_t end = i + p;
      while (end < w.size() && w[end] == w[end - p]) ++end;
      const std::string u = w.substr(i, end - i);
      bool is_least = u.size() >= 2 * p;
      for (std::size_t q = 1; q < p && is_least; ++q) is_least = !has_period(u, q);
      if (is_least) runs.push_back({i + 1, u.size(), p});
    }
  }
  ASSERT_EQ(printed(runs), call(vstring_repetitions, {w})) << w;
}

TEST(Suffixes, AllShortWordsByDefinition) {
  for (const auto& words : {all_words("ab", 10), all_words("a\xc8"
                                                           "b",
                                                           6)}) {
    for (const std::string& w : words) {
      check_suffixes(w);
      check_transform(w);
      check_factors(w);
      check_repetitions(w);
    }
  }
}

// Long enough for texts of ranks below texts of ranks.
TEST(Suffixes, LongWords) {
  for (const std::size_t n : {100U, 1000U}) {
    for (const std::string& w : sample_words(n)) {
      check_suffixes(w);
      check_transform(w);
      check_repetitions(w.substr(0, 300));
    }
  }
}

TEST(Suffixes, LongestCommonFactorOfAllShortPairs) {
  const auto words = all_words("abc", 4);
  for (const std::string& s : words) {
    for (const std::string& t : words) {
      std::string longest;
      for (std::size_t i = 0; i < s.size(); ++i) {
        while (i + longest.size() < s.size() &&
               t.find(s.substr(i, longest.size() + 1)) != std::string::npos) {
          longest = s.substr(i, longest.size() + 1);
        }
      }
      ASSERT_EQ(printed(longest), call(vstring_lcsubstring, {s, t})) << s << ", " << t;
    }
  }
}

TEST(Suffixes, ValuesAndRefusals) {
  Check({
      {R"(suffixarray(""), suffixarray(`aaa`), suffixarray("\200a", 7))", "[], [3, 2, 1], [2, 1]"},
      {R"(factorcount(""), factorcount(banana, 2), factorcount("abc", 4), factorcount("", 0))",
       "1, 3, 0, 1"},
      {R"(repetitions("abaababaab"))", "[[1, 6, 3], [1, 10, 5], [3, 2, 1], [4, 5, 2], [8, 2, 1]]"},
      {R"(lcsubstring("abcxyz", "xyzabc"), lcsubstring("ab", cd), lcsubstring("", "a"))",
       R"("abc", "", "")"},
      {R"(bwt("abab"), bwt(""), bwt(a), unbwt("bbaa", 2), unbwt("", 0), unbwt("ba", 1))",
       R"(["bbaa", 1], ["", 0], ["a", 1], "abab", "", "ab")"},
  });
  CheckRefusals({
      {"second argument must be non-negative", R"(factorcount("a", -1))"},
      {"second argument is out of range",
       R"(unbwt("ab", 3); unbwt("ab", 0); unbwt("", 1); unbwt("a", -1))"},
  });
}

}  // namespace
}  // namespace vstring_test
