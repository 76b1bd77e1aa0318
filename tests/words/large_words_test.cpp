// Long words within the memory that the algorithms state: no request is larger.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>

#include "support/allocations.h"
#include "support/direct.h"
#include "words/sample_words.h"
#include "words/suffix/suffix_array.h"

namespace vstring_test {
namespace {

std::string within(std::size_t bytes, VelmorCommand command, const Values& words) {
  const std::size_t before = limit_allocation(bytes);
  const std::string answer = call(command, words);
  limit_allocation(before);
  return answer;
}

TEST(LargeWords, PeriodsAndConjugates) {
  constexpr std::size_t n = 121393;           // the length of a Fibonacci word
  constexpr std::size_t kPeriod = 75025;      // that of the one before
  constexpr std::size_t kArray = 4 * n + 64;  // a border array
  constexpr std::size_t kResult = n + 64;     // no more than the result itself
  const std::string w = fibonacci_word(n);
  EXPECT_EQ(printed(kPeriod), within(kArray, vstring_period, {w}));
  EXPECT_EQ(printed(n - kPeriod), within(kArray, vstring_borderlen, {w}));
  const std::string least = within(kResult, vstring_minconj, {w}).substr(1, n);
  EXPECT_EQ("true", within(kResult, vstring_conjp, {least, w}));
  EXPECT_EQ("[" + quoted(least) + "]", within(kResult, vstring_lynfac, {least}));
  EXPECT_EQ("true", within(kResult, vstring_isprim, {w}));
}

TEST(LargeWords, PowersAndDistances) {
  const std::string u = random_word(1234, 3, 1);
  const std::string w = periodic_word(u, 300 * u.size());
  std::string v = w;
  v.insert(w.size() / 3, "x");
  v.erase(w.size() / 3 + 3000, 1);
  constexpr std::size_t kLittle = 1 << 16;
  EXPECT_EQ("1234", within(kLittle, vstring_period, {w}));
  EXPECT_EQ(quoted(u), within(kLittle, vstring_primroot, {w}));
  EXPECT_EQ("false", within(kLittle, vstring_isprim, {w}));
  EXPECT_EQ("2", within(kLittle, vstring_levenshtein, {w, v}));
  EXPECT_EQ("0", within(kLittle, vstring_hd, {w, w}));
}

// Suffixes are in order if those that begin one letter later are, wherever the letters are alike
// (S. Burkhardt, J. Karkkainen, "Fast lightweight suffix array construction and checking", 2003).
void check_suffix_array(const std::string& w) {
  const auto letter = [&](std::size_t i) { return static_cast<vstring::Byte>(w[i]); };
  std::vector<std::int32_t> order(w.size());
  const std::size_t before = limit_allocation(2 * w.size() + 65536 * 4);
  const vstring::Status status = vstring::words::suffix_array(
      {reinterpret_cast<const vstring::Byte*>(w.data()), w.size()}, order);
  limit_allocation(before);
  ASSERT_EQ(vstring::Status::ok, status);
  std::array<std::size_t, 257> next = {};
  for (std::size_t i = 0; i < w.size(); ++i) ++next[letter(i) + 1U];
  for (std::size_t c = 0; c < 256; ++c) next[c + 1] += next[c];
  const auto stands_next = [&](std::size_t i) {
    return static_cast<std::size_t>(order[next[letter(i)]++]) == i;
  };
  ASSERT_TRUE(stands_next(w.size() - 1));
  for (const std::int32_t i : order) {
    ASSERT_LT(static_cast<std::size_t>(i), w.size());
    ASSERT_TRUE(i == 0 || stands_next(static_cast<std::size_t>(i) - 1)) << i;
  }
}

// No two words have one transform (I. Gessel, C. Reutenauer, "Counting permutations with given
// cycle structure and descent set", 1993): what comes back has been sorted rightly.
std::string transform_and_back(const std::string& w) {
  const std::size_t before = limit_allocation(4 * w.size() + 64);
  const HostObject last_and_row = result_of(vstring_bwt, {w});
  const Value last(velmor_element(last_and_row, 1));
  const bool is_back = text(vstring_unbwt, {last, Value(velmor_element(last_and_row, 2))}) == w;
  limit_allocation(before);
  EXPECT_TRUE(is_back);
  return {velmor_text(last), velmor_text_length(last)};
}

// The transform of a Fibonacci word is sorted, b before a (S. Mantaci, A. Restivo, M. Sciortino,
// "Burrows-Wheeler transform and Sturmian words", 2003), and it has n + 1 factors of each length
// n that is not too long.
void check_fibonacci_word(std::size_t n, std::size_t letters_b) {
  const std::string w = fibonacci_word(n);
  EXPECT_TRUE(transform_and_back(w) ==
              std::string(letters_b, 'b') + std::string(n - letters_b, 'a'));
  EXPECT_EQ("1001", within(4 * n + 64, vstring_factorcount, {w, 1000}));
}

TEST(LargeWords, Suffixes) {
  check_fibonacci_word(121393, 46368);
  const std::string w = random_word(70001, 255, 1);
  const std::string samples[] = {
      w,                                         // told apart by a few letters
      w.substr(0, 65000) + w.substr(0, 65000),   // by many
      w.substr(0, 65500) + w.substr(100, 1000),  // by those up to the end
      random_word(70001, 70, 2),
      random_word(70001, 4, 3),
  };
  for (const std::string& sample : samples) {
    check_suffix_array(sample);
    transform_and_back(sample);
  }
}

// Texts that are no transforms have several cycles of rows.
TEST(LargeWords, WordsFromAnyRow) {
  const std::string last = random_word(70001, 255, 4);
  const std::size_t n = last.size();
  std::vector<std::size_t> sorted(n);  // the letters' places; a row follows its letter's
  std::iota(sorted.begin(), sorted.end(), std::size_t{0});
  std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t i, std::size_t j) {
    return static_cast<vstring::Byte>(last[i]) < static_cast<vstring::Byte>(last[j]);
  });
  std::vector<std::size_t> row(n);
  for (std::size_t r = 0; r < n; ++r) row[sorted[r]] = r;
  for (const std::size_t start : {0UL, 12345UL, n - 1}) {
    std::string word(n, ' ');
    std::size_t r = start;
    for (std::size_t i = n; i-- > 0; r = row[r]) word[i] = last[r];
    EXPECT_TRUE(word == text(vstring_unbwt, {last, static_cast<std::int64_t>(start + 1)}));
  }
}

TEST(LargeWordsLongTier, SuffixesOf100MB) {
  check_suffix_array(random_word(100000000, 4, 1));
  check_fibonacci_word(102334155, 39088169);
}

// The same alignment is chosen from bit vectors and from a table of scores, and its cost is the
// distance.
void check_alignment(const std::string& s, const std::string& t) {
  const std::size_t linear = 32 * s.size() + 65536;
  const std::string edits = within(linear, vstring_edits, {s, t});
  const std::string distance = call(vstring_levenshtein, {s, t});
  const std::string alignment = within(linear, vstring_align, {s, t, equation("match", 0)});
  EXPECT_EQ("[-" + distance + ", " + edits + ", ",
            alignment.substr(0, distance.size() + edits.size() + 6));
}

TEST(LargeWords, Alignments) {
  const std::string s = random_word(3000, 4, 1);
  check_alignment(s, random_word(2970, 4, 2));
  for (const std::size_t apart : {10U, 30U, 200U}) {
    std::string close = s;
    for (std::size_t i = 0; i + 2 < close.size(); i += apart) {
      close.replace(i, i % 3, random_word(i / apart % 3, 4, 3));
    }
    check_alignment(s, close);
    check_alignment(close, s);
  }
}

TEST(LargeWordsLongTier, AlignmentOf100KB) {
  check_alignment(random_word(100000, 4, 1), random_word(99000, 4, 2));
}

}  // namespace
}  // namespace vstring_test
