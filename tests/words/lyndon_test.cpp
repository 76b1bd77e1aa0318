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
  return !w.empty();
}

std::string rotation(const std::string& w, std::size_t i) { return w.substr(i) + w.substr(0, i); }

std::string root(const std::string& w) {
  std::size_t n = 1;
  while (n < w.size() && (w.size() % n != 0 || rotation(w, n) != w)) ++n;
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

void check_factorisation(const std::string& w) {
  const auto factors = texts(vstring_lynfac, {w});
  std::string product;
  for (std::size_t i = 0; i < factors.size(); ++i) {
    ASSERT_TRUE(is_lyndon(factors[i])) << w;
    const bool is_in_order = i == 0 || !less(factors[i - 1], factors[i]);
    ASSERT_TRUE(is_in_order) << w;
    product += factors[i];
  }
  ASSERT_EQ(w, product);
}

void check_rotations(const std::string& w) {
  std::string least = w;
  for (std::size_t i = 1; i < w.size(); ++i) least = std::min(least, rotation(w, i), less);
  ASSERT_EQ(least, text(vstring_minconj, {w})) << w;
  ASSERT_TRUE(truth(vstring_conjp, {w, least})) << w;
  ASSERT_EQ(root(w), text(vstring_primroot, {w})) << w;
  ASSERT_EQ(!w.empty() && root(w) == w, truth(vstring_isprim, {w})) << w;
}

void check_monotone(const std::string& w) {
  std::vector<std::string> factors;
  for (std::size_t i = 0; i < w.size(); i += factors.back().size()) {
    factors.push_back(monotone_factor(w.substr(i)));
  }
  ASSERT_EQ(factors, texts(vstring_monfac, {w})) << w;
}

TEST(Lyndon, AllShortWordsByDefinition) {
  // The byte 200 comes before a.
  for (const auto& words : {all_words("ab", 14), all_words("abc", 9), all_words("a\xc8", 10)}) {
    for (const std::string& w : words) {
      check_factorisation(w);
      check_rotations(w);
      check_monotone(w);
    }
  }
}

TEST(Lyndon, LongWords) {
  for (const std::size_t n : {15, 16, 17, 64, 210, 557, 640, 729}) {
    for (const std::string& w : sample_words(n)) {
      check_factorisation(w);
      check_rotations(w);
      check_monotone(w);
      for (const std::size_t i : {n / 3, n - 1}) {
        std::string other = rotation(w, i);
        EXPECT_TRUE(truth(vstring_conjp, {w, other})) << w;
        other[n / 2] = 'x';
        EXPECT_FALSE(truth(vstring_conjp, {w, other})) << w;
      }
    }
  }
}

TEST(Lyndon, ConjugacyOfAllShortPairs) {
  const auto words = all_words("ab", 7);
  for (const std::string& v : words) {
    for (const std::string& w : words) {
      const bool expected = v.size() == w.size() && (w + w).find(v) != std::string::npos;
      ASSERT_EQ(expected, truth(vstring_conjp, {v, w})) << v << ", " << w;
    }
  }
}

TEST(Lyndon, ValuesAndRefusals) {
  Check({
      {"lynfac(\"banana\"), lynfac(`ab`), lynfac(\"\")", R"(["b", "an", "an", "a"], ["ab"], [])"},
      {"minconj(\"cab\"), minconj(\"\"), minconj(`x`)", R"("abc", "", x)"},
      {"conjp(\"abc\", `cab`), conjp(\"ab\", \"abab\"), conjp(\"\", \"\")", "true, false, true"},
      {"isprim(\"abab\"), isprim(\"aba\"), isprim(\"\"), isprim(\"a\"), isprim(\"aa\")",
       "false, true, false, true, false"},
      {"primroot(\"abcabcabc\"), primroot(`abab`), primroot(\"aaaaaaa\"), primroot(\"abaaaaa\")",
       R"("abc", "ab", "a", "abaaaaa")"},
      {"monfac(\"abcba\"), monfac(\"abb\"), monfac(\"aab\"), monfac(\"\")",
       R"(["abc", "ba"], ["ab", "b"], ["aab"], [])"},
      {"monfac(\"aaba\"), monfac(\"aaa\")", R"(["aab", "a"], ["aaa"])"},
      {"lynfac()", "error: expecting one argument, but got 0"},
      {"lynfac(1)", "error: argument must be a string"},
      {"minconj(1.5)", "error: argument must be a string"},
      {"conjp(\"a\")", "error: expecting 2 arguments, but got 1"},
      {"conjp(1, 2)", "error: first argument must be a string"},
      {"conjp(\"a\", [\"a\"])", "error: second argument must be a string"},
      {"isprim([\"a\"])", "error: argument must be a string"},
      {"primroot(-1)", "error: argument must be a string"},
      {"monfac(1, \"a\")", "error: argument must be a string"},
      {"lynfac(" + quoted(std::string(40, 'a')) + ")",
       "[" + periodic_word("\"a\", ", 40 * 5 - 2) + "]"},
      {"length(minconj(" + quoted(fibonacci_word(9000)) + "))", "9000"},
  });
}

TEST(Lyndon, ReturnsTheArgumentItself) {
  struct Case {
    VelmorCommand command;
    const char* word;
    bool itself;
  };
  const Case cases[] = {
      {vstring_minconj, "", true},        {vstring_minconj, "x", true},
      {vstring_minconj, "ab", false},     {vstring_primroot, "", true},
      {vstring_primroot, "x", false},     {vstring_primroot, "xy", true},
      {vstring_primroot, "abcaba", true}, {vstring_primroot, "abab", false},
  };
  VelmorHeap* const heap = session().heap();
  for (const auto& [command, word, itself] : cases) {
    for (const HostObject argument : {velmor_string(heap, word), velmor_name(heap, word)}) {
      HostObject result = 0;
      ASSERT_TRUE(velmor_call(heap, command, velmor_sequence(heap, 1, &argument), &result));
      EXPECT_EQ(itself, result == argument) << word;
    }
  }
}

}  // namespace
}  // namespace vstring_test
