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

}  // namespace
}  // namespace vstring_test
