// Distances.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

// R. A. Wagner and M. J. Fischer, 1974.
std::size_t edits(const std::string& s, const std::string& t) {
  std::vector<std::size_t> row(t.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (const char c : s) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 1; j <= t.size(); ++j) {
      const std::size_t substituted = diagonal + (c == t[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, substituted});
    }
  }
  return row.back();
}

void check_levenshtein(const std::string& s, const std::string& t) {
  ASSERT_EQ(printed(edits(s, t)), call(vstring_levenshtein, {s, t})) << s << ", " << t;
}

std::size_t lee(const std::string& s, const std::string& t) {
  std::size_t sum = 0;
  for (std::size_t i = 0; i < s.size(); ++i) {
    const unsigned d = (static_cast<unsigned char>(s[i]) - static_cast<unsigned char>(t[i])) & 255u;
    sum += std::min(d, 256 - d);
  }
  return sum;
}

TEST(Distances, AllShortPairsByDefinition) {
  const auto words = all_words("abc", 5);
  for (const std::string& s : words) {
    for (const std::string& t : words) {
      const std::size_t shorter = std::min(s.size(), t.size());
      const std::size_t total = s.size() + t.size();
      std::size_t differing = std::max(s.size(), t.size()) - shorter;
      std::size_t prefix = shorter;
      std::size_t suffix = shorter;
      for (std::size_t i = 0; i < shorter; ++i) differing += s[i] != t[i] ? 1 : 0;
      while (s.substr(0, prefix) != t.substr(0, prefix)) --prefix;
      while (s.substr(s.size() - suffix) != t.substr(t.size() - suffix)) --suffix;
      const std::size_t distance = edits(s, t);
      ASSERT_EQ(printed(differing), call(vstring_hd, {s, t}));
      ASSERT_EQ(printed(total - 2 * prefix), call(vstring_prefixdist, {s, t}));
      ASSERT_EQ(printed(total - 2 * suffix), call(vstring_suffixdist, {s, t}));
      ASSERT_EQ(printed(distance), call(vstring_levenshtein, {s, t})) << s << ", " << t;
      ASSERT_EQ(2 * distance > total ? "error: out of memory" : printed(total - 2 * distance),
                call(vstring_editdist, {s, t}));
    }
  }
}

// Lengths around multiples of the 64 rows of a stripe and the 64 columns of a run; words that are
// close and words that are not.
TEST(Distances, LevenshteinOfLongerWords) {
  unsigned seed = 0;
  for (const std::size_t m : {1U, 7U, 63U, 64U, 65U, 127U, 128U, 130U, 300U}) {
    for (const std::size_t n : {2U, 64U, 66U, 129U, 192U, 200U, 450U}) {
      for (const unsigned letters : {2U, 4U, 255U}) {
        const std::string s = random_word(m, letters, ++seed);
        check_levenshtein(s, random_word(n, letters, ++seed));
        std::string close = s;
        for (std::size_t i = 0; i < close.size(); i += 1 + n / 4) {
          if (i % 3 == 0) close.erase(i, 1);
          if (i % 3 == 1) close.insert(i, "b");
          if (i % 3 == 2) close[i] = 'c';
        }
        check_levenshtein("x" + s, close + "y");
      }
    }
  }
  check_levenshtein(random_word(1500, 3, 1), random_word(1100, 3, 2));
  check_levenshtein(fibonacci_word(2000), "b" + fibonacci_word(1500));
  check_levenshtein(periodic_word("abc", 1200), periodic_word("acb", 1300));
}

// Words of many lengths at distances about those that 64 diagonals of the table can tell: letters
// that are missing in the middle, letters that move from end to end, and letters that differ.
TEST(Distances, LevenshteinNearTheDiagonal) {
  unsigned seed = 0;
  for (const std::size_t missing : {0U, 1U, 2U, 31U, 58U, 62U, 63U, 64U}) {
    for (const std::size_t moved : {0U, 1U, 15U, 30U, 31U, 32U}) {
      for (const std::size_t differing : {0U, 1U, 3U, 30U, 62U, 63U, 64U, 65U}) {
        const std::string ends = random_word(moved, 20, ++seed);
        const std::string kept = random_word(66 + 3 * (missing + moved), 20, ++seed);
        std::string other = kept;
        for (std::size_t i = 0; i < differing; ++i) other[i * kept.size() / differing] = 'A';
        other.insert(kept.size() / 2, random_word(missing, 20, ++seed));
        check_levenshtein(ends + kept, other + ends);
      }
    }
  }
}

TEST(Distances, LeeOverAllResidues) {
  const std::string all = [] {
    std::string bytes;
    for (int c = 1; c < 256; ++c) bytes += static_cast<char>(c);
    return bytes;
  }();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const std::string turned = all.substr(i) + all.substr(0, i);
    ASSERT_EQ(printed(lee(all, turned)), call(vstring_leedist, {all, turned}));
  }
  const std::string zeroes(all.size(), '\0');
  EXPECT_EQ(printed(lee(all, zeroes)), call(vstring_leewt, {all}));
  EXPECT_EQ("1280000", call(vstring_leewt, {std::string(10000, '\x80')}));
}

TEST(Distances, ValuesAndRefusals) {
  const std::string s = random_word(1100, 4, 5);
  const std::string t = random_word(1100, 4, 6);
  std::string close = s;
  for (std::size_t i = 0; i < s.size(); i += 10) close[i] = 'x';
  Check({
      {R"(hd(`abc`, "a"), leedist("\377", "\001"), leewt("\310"), leewt(""))", "2, 2, 56, 0"},
      {R"(leedist("ab", "a"))", "error: strings must be of equal length"},
      {R"(levenshtein("flaw", "lawn"), levenshtein(`abc`, "abc"))", "2, 0"},
      {R"(editdist("a", "bcd"))", "error: out of memory"},
      {"levenshtein(" + quoted(s) + ", " + quoted(t) + ")", printed(edits(s, t))},
      {"editdist(" + quoted(s) + ", " + printed(close) + ")", printed(2200 - 2 * edits(s, close))},
  });
}

}  // namespace
}  // namespace vstring_test
