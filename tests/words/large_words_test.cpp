// Long words within the memory that the algorithms state: no request is larger.
#include <gtest/gtest.h>

#include "support/allocations.h"
#include "support/direct.h"
#include "words/sample_words.h"

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

// The transform of a Fibonacci word is sorted, b before a (S. Mantaci, A. Restivo, M. Sciortino,
// "Burrows-Wheeler transform and Sturmian words", 2003), and it has n + 1 factors of each length
// n that is not too long.
void check_suffixes(std::size_t n, std::size_t letters_b) {
  const std::size_t cells = 4 * n + 64;
  const std::string w = fibonacci_word(n);
  const std::string last = std::string(letters_b, 'b') + std::string(n - letters_b, 'a');
  const std::string transform = within(cells, vstring_bwt, {w});
  EXPECT_EQ(quoted(last), transform.substr(1, n + 2));
  EXPECT_EQ("1001", within(cells, vstring_factorcount, {w, 1000}));
  const std::int64_t row = std::stoll(transform.substr(n + 5));
  EXPECT_EQ(quoted(w), within(cells, vstring_unbwt, {last, row}));
  EXPECT_EQ(quoted(w.substr(0, n / 2)),
            within(cells, vstring_lcsubstring, {w.substr(0, n / 2), w.substr(0, n / 2)}));
}

TEST(LargeWords, Suffixes) { check_suffixes(121393, 46368); }

TEST(LargeWordsLongTier, SuffixesOf100MB) { check_suffixes(102334155, 39088169); }

// The same alignment is chosen from bit vectors and from a table of scores, and its cost is the
// distance.
void check_alignment(std::size_t n) {
  const std::size_t linear = 32 * n + 65536;
  const std::string s = random_word(n, 4, 1);
  const std::string t = random_word(n - n / 100, 4, 2);
  const std::string edits = within(linear, vstring_edits, {s, t});
  const std::string distance = call(vstring_levenshtein, {s, t});
  const std::string alignment = within(linear, vstring_align, {s, t, equation("match", 0)});
  EXPECT_EQ("[-" + distance + ", " + edits + ", ",
            alignment.substr(0, distance.size() + edits.size() + 6));
}

TEST(LargeWords, Alignments) { check_alignment(3000); }

TEST(LargeWordsLongTier, AlignmentOf100KB) { check_alignment(100000); }

}  // namespace
}  // namespace vstring_test
