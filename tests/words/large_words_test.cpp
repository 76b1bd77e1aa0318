// Words of 100 MB, within the memory that the algorithms state.
#include <gtest/gtest.h>

#include "support/allocations.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

constexpr std::size_t kFibonacci = 102334155;           // the length of a Fibonacci word
constexpr std::size_t kFibonacciBefore = 63245986;      // that of the one before: its least period
constexpr std::size_t kLinear = 4 * (kFibonacci + 64);  // a border array
constexpr std::size_t kResult = kFibonacci + 64;        // no more than the result itself

class LargeWordsLongTier : public testing::Test {
 protected:
  void TearDown() override { limit_allocation(before_); }

  // What a call may ask for in one piece.
  void allow(std::size_t bytes) { limit_allocation(bytes); }

 private:
  std::size_t before_ = limit_allocation(SIZE_MAX);
};

TEST_F(LargeWordsLongTier, PeriodsAndConjugates) {
  const std::string w = fibonacci_word(kFibonacci);
  allow(kLinear);
  EXPECT_EQ(printed(kFibonacciBefore), answer(vstring_period, {w}));
  EXPECT_EQ(printed(kFibonacci - kFibonacciBefore), answer(vstring_borderlen, {w}));
  allow(kResult);
  const std::string least = answer(vstring_minconj, {w}).substr(1, w.size());
  EXPECT_EQ("true", answer(vstring_conjp, {least, w}));
  EXPECT_EQ(std::vector{least},
            texts(vstring_lynfac, {least}));  // a Lyndon word, w being primitive
  EXPECT_EQ("true", answer(vstring_isprim, {w}));
}

TEST_F(LargeWordsLongTier, PowersAndDistances) {
  const std::string u = random_word(12345, 3, 1);
  const std::string w = periodic_word(u, 8000 * u.size());
  allow(1 << 16);
  EXPECT_EQ("12345", answer(vstring_period, {w}));
  EXPECT_EQ(quoted(u), answer(vstring_primroot, {w}));
  EXPECT_EQ("false", answer(vstring_isprim, {w}));
  std::string v = w;
  v.insert(w.size() / 3, "x");
  v.erase(w.size() / 3 + 3000, 1);
  EXPECT_EQ("2", answer(vstring_levenshtein, {w, v}));
  EXPECT_EQ("0", answer(vstring_hd, {w, w}));
}

}  // namespace
}  // namespace vstring_test
