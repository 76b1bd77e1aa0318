// Lyndon factorisation, conjugates, primitivity, monotone factors.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

int letter(char c) { return static_cast<signed char>(c); }

// The order of words over signed letters.
bool less(const std::string& v, const std::string& w) {
  return std::lexicographical_compare(v.begin(), v.end(), w.begin(), w.end(),
                                      [](char a, char b) { return letter(a) < letter(b); });
}

bool is_lyndon(const std::string& w) {
  for (std::size_t i = 1; i < w.size(); ++i) {
    if (!less(w, w.substr(i))) return false;
  }
  return true;
}

std::string rotation(const std::string& w, std::size_t i) { return w.substr(i) + w.substr(0, i); }

std::string root(const std::string& w) {
  std::size_t n = 1;
  while (n < w.size() && (w.size() % n != 0 || rotation(w, n) != w)) ++n;
  return w.substr(0, n);
}

// The longest Lyndon word that begins w is its first factor.
std::string lyndon_factor(const std::string& w) {
  std::size_t n = w.size();
  while (!is_lyndon(w.substr(0, n))) --n;
  return w.substr(0, n);
}

std::string monotone_factor(const std::string& w) {
  if (w.size() < 2) return w;
  if (w[1] == w[0]) return w[0] + monotone_factor(w.substr(1));
  const bool rises = letter(w[1]) > letter(w[0]);
  std::size_t n = 2;
  while (n < w.size() && w[n] != w[n - 1] && (letter(w[n]) > letter(w[n - 1])) == rises) ++n;
  return w.substr(0, n);
}

std::vector<std::string> factors(std::string w, std::string (*first)(const std::string&)) {
  std::vector<std::string> list;
  for (; !w.empty(); w.erase(0, list.back().size())) list.push_back(first(w));
  return list;
}

void check_word(const std::string& w) {
  ASSERT_EQ(printed(factors(w, lyndon_factor)), call(vstring_lynfac, {w})) << w;
  ASSERT_EQ(printed(factors(w, monotone_factor)), call(vstring_monfac, {w})) << w;
  std::string least = w;
  for (std::size_t i = 1; i < w.size(); ++i) least = std::min(least, rotation(w, i), less);
  ASSERT_EQ(printed(least), call(vstring_minconj, {w})) << w;
  ASSERT_EQ("true", call(vstring_conjp, {w, least})) << w;
  ASSERT_EQ(printed(root(w)), call(vstring_primroot, {w})) << w;
  ASSERT_EQ(printed(!w.empty() && root(w) == w), call(vstring_isprim, {w})) << w;
}

TEST(Lyndon, AllShortWordsByDefinition) {
  // The byte 200 comes before a.
  for (const auto& words : {all_words("ab", 14), all_words("abc", 9), all_words("a\xc8", 10)}) {
    for (const std::string& w : words) check_word(w);
  }
}

TEST(Lyndon, LongWords) {
  for (const std::size_t n : {15U, 16U, 17U, 64U, 210U}) {
    for (const std::string& w : sample_words(n)) {
      check_word(w);
      std::string other = rotation(w, n / 3);
      EXPECT_EQ("true", call(vstring_conjp, {w, other})) << w;
      other[n / 2] = 'x';
      EXPECT_EQ("false", call(vstring_conjp, {w, other})) << w;
    }
  }
}

TEST(Lyndon, ConjugacyOfAllShortPairs) {
  const auto words = all_words("ab", 7);
  for (const std::string& v : words) {
    for (const std::string& w : words) {
      const bool expected = v.size() == w.size() && (w + w).find(v) != std::string::npos;
      ASSERT_EQ(printed(expected), call(vstring_conjp, {v, w})) << v << ", " << w;
    }
  }
}

TEST(Lyndon, ValuesAndRefusals) {
  Check({
      {R"(lynfac("banana"), lynfac(`ab`), lynfac(""))", R"(["b", "an", "an", "a"], ["ab"], [])"},
      {R"(minconj("cab"), minconj(`x`), conjp("abc", `cab`))", R"("abc", x, true)"},
      {R"(primroot(`abab`), primroot("aaaaaaa"), primroot("abaaaaa"))", R"("ab", "a", "abaaaaa")"},
      {"length(minconj(" + quoted(fibonacci_word(9000)) + "))", "9000"},
  });
}

TEST(Lyndon, ReturnsTheArgumentItself) {
  CheckIdentity({{"", "minconj(x); primroot(x)", "", ""},
                 {"x", "minconj(x)", "", "primroot(x)"},
                 {"xy", "primroot(x)", "", "minconj(x)"},
                 {"abab", "", "", "primroot(x)"},
                 {"abcaba", "primroot(x)", "", ""}});
}

}  // namespace
}  // namespace vstring_test
