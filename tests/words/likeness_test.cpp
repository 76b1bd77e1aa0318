// Distances with exchanges, likeness of names and of tokens, nearest texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>

#include "bytes/cpu.h"
#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

std::string printed_float(double value) {
  char* const text = velmor_print(session().heap(), velmor_float(session().heap(), value));
  const std::string copy = text;
  std::free(text);
  return copy;
}

enum class Exchanges { none, neighbours, any };

// The table by its definition; cell (i, j) looks at the cells above and to the left, and at those
// before an exchange.
std::size_t distance(const std::string& s, const std::string& t, std::size_t substitution,
                     Exchanges exchanges) {
  std::vector<std::vector<std::size_t>> d(s.size() + 1, std::vector<std::size_t>(t.size() + 1));
  for (std::size_t i = 0; i <= s.size(); ++i) {
    for (std::size_t j = 0; j <= t.size(); ++j) {
      if (i == 0 || j == 0) {
        d[i][j] = i + j;
        continue;
      }
      d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1,
                          d[i - 1][j - 1] + (s[i - 1] == t[j - 1] ? 0 : substitution)});
      if (exchanges == Exchanges::none) continue;
      std::size_t k = i - 1;  // the last place before i with t_j, and the last before j with s_i
      std::size_t l = j - 1;
      while (k > 0 && s[k - 1] != t[j - 1]) --k;
      while (l > 0 && t[l - 1] != s[i - 1]) --l;
      if (k == 0 || l == 0) continue;
      const std::size_t between = (i - k - 1) + (j - l - 1);
      if (exchanges == Exchanges::neighbours && between > 0) continue;
      d[i][j] = std::min(d[i][j], d[k - 1][l - 1] + 1 + between);
    }
  }
  return d[s.size()][t.size()];
}

double ratio(const std::string& s, const std::string& t) {
  const std::size_t both = s.size() + t.size();
  const std::size_t common = (both - distance(s, t, 2, Exchanges::none)) / 2;
  return both == 0 ? 100 : 200.0 * static_cast<double>(common) / static_cast<double>(both);
}

double best_window(const std::string& p, const std::string& q) {
  double best = 0;
  for (std::size_t i = 0; i < q.size(); ++i) {
    for (std::size_t n = 1; n <= std::min(p.size(), q.size() - i); ++n) {
      const bool counts = n == p.size() || i == 0 || i + n == q.size();
      if (counts) best = std::max(best, ratio(p, q.substr(i, n)));
    }
  }
  return best;
}

double partial_ratio(const std::string& s, const std::string& t) {
  if (s.empty() || t.empty()) return s == t ? 100 : 0;
  if (s.size() != t.size()) return s.size() < t.size() ? best_window(s, t) : best_window(t, s);
  return std::max(best_window(s, t), best_window(t, s));
}

double jaro(const std::string& s, const std::string& t) {
  if (s.empty() || t.empty()) return s == t ? 1 : 0;
  const std::size_t half = std::max(s.size(), t.size()) / 2;
  const std::size_t w = half == 0 ? 0 : half - 1;
  std::string from;
  std::string taken(t.size(), '\0');
  for (std::size_t i = 0; i < s.size(); ++i) {
    for (std::size_t j = i > w ? i - w : 0; j < t.size() && j <= i + w; ++j) {
      if (taken[j] != 0 || s[i] != t[j]) continue;
      from += taken[j] = s[i];
      break;
    }
  }
  std::erase(taken, '\0');
  if (from.empty()) return 0;
  std::size_t displaced = 0;
  for (std::size_t k = 0; k < from.size(); ++k) displaced += from[k] != taken[k] ? 1 : 0;
  const auto m = static_cast<double>(from.size());
  return (m / static_cast<double>(s.size()) + m / static_cast<double>(t.size()) +
          (m - static_cast<double>(displaced / 2)) / m) /
         3;
}

double jaro_winkler(const std::string& s, const std::string& t) {
  const double j = jaro(s, t);
  double prefix = 0;
  for (std::size_t i = 0; i < 4 && i < s.size() && i < t.size() && s[i] == t[i]; ++i) ++prefix;
  return j > 0.7 ? j + prefix * 0.1 * (1 - j) : j;
}

double cosine(const std::string& s, const std::string& t, std::size_t q) {
  if (s.size() < q || t.size() < q) return s == t ? 1 : 0;
  std::map<std::string, std::pair<std::int64_t, std::int64_t>> counts;
  for (std::size_t i = 0; i + q <= s.size(); ++i) ++counts[s.substr(i, q)].first;
  for (std::size_t i = 0; i + q <= t.size(); ++i) ++counts[t.substr(i, q)].second;
  std::int64_t dot = 0;
  std::int64_t square_s = 0;
  std::int64_t square_t = 0;
  for (const auto& [gram, count] : counts) {
    dot += count.first * count.second;
    square_s += count.first * count.first;
    square_t += count.second * count.second;
  }
  return static_cast<double>(dot) / std::sqrt(static_cast<double>(square_s * square_t));
}

void check_pair(const std::string& s, const std::string& t) {
  SCOPED_TRACE(s + ", " + t);
  ASSERT_EQ(printed(distance(s, t, 1, Exchanges::any)), call(vstring_damerau, {s, t}));
  ASSERT_EQ(printed(distance(s, t, 2, Exchanges::none)), call(vstring_indel, {s, t}));
  ASSERT_EQ(printed_float(jaro(s, t)), call(vstring_jaro, {s, t}));
  ASSERT_EQ(printed_float(jaro_winkler(s, t)), call(vstring_jarowinkler, {s, t}));
  ASSERT_EQ(printed_float(ratio(s, t)), call(vstring_ratio, {s, t}));
  ASSERT_EQ(printed_float(partial_ratio(s, t)), call(vstring_partialratio, {s, t}));
  for (const std::size_t q : {1U, 2U, 3U}) {
    ASSERT_EQ(printed_float(cosine(s, t, q)),
              call(vstring_cosine, {s, t, static_cast<std::int64_t>(q)}));
  }
}

// An exchange that nothing else touches cannot be told by the last places of letters alone.
std::size_t string_alignment(const std::string& s, const std::string& t) {
  std::vector<std::vector<std::size_t>> d(s.size() + 1, std::vector<std::size_t>(t.size() + 1));
  for (std::size_t i = 0; i <= s.size(); ++i) {
    for (std::size_t j = 0; j <= t.size(); ++j) {
      d[i][j] = i + j;
      if (i == 0 || j == 0) continue;
      d[i][j] = std::min(
          {d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + (s[i - 1] == t[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && s[i - 1] == t[j - 2] && s[i - 2] == t[j - 1]) {
        d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
      }
    }
  }
  return d[s.size()][t.size()];
}

TEST(Likeness, AllShortPairsByDefinition) {
  const auto words = all_words("abc", long_tier() ? 5 : 4);
  for (const std::string& s : words) {
    for (const std::string& t : words) {
      check_pair(s, t);
      ASSERT_EQ(std::to_string(string_alignment(s, t)), call(vstring_osa, {s, t}));
    }
  }
}

// Around the 64 rows of a machine word, by the kernel in vectors and by its plain twin.
TEST(Likeness, LongerWords) {
  unsigned seed = 0;
  for (const bool is_plain : {false, true}) {
    vstring::plain_kernels_only = is_plain;
    for (const std::size_t n : {20U, 63U, 64U, 65U, 130U, 200U}) {
      const std::string s = random_word(n, 3, ++seed);
      std::string close = s;
      for (std::size_t i = 0; i + 1 < n; i += 7) std::swap(close[i], close[i + 1]);
      for (const std::string& t : {close, random_word(64, 3, ++seed), "ab" + close.substr(n / 3)}) {
        check_pair(s, t);
        ASSERT_EQ(std::to_string(string_alignment(s, t)), call(vstring_osa, {s, t}));
      }
    }
  }
  vstring::plain_kernels_only = false;
}

// The nearest texts are those that come first when all are compared and sorted.
TEST(Likeness, ClosestByEachMetric) {
  struct Metric {
    const char* name;
    VelmorCommand command;
    bool is_distance;
  };
  const Metric metrics[] = {
      {"levenshtein", vstring_levenshtein, true},
      {"damerau", vstring_damerau, true},
      {"osa", vstring_osa, true},
      {"indel", vstring_indel, true},
      {"hamming", vstring_hd, true},
      {"jaro", vstring_jaro, false},
      {"jarowinkler", vstring_jarowinkler, false},
      {"ratio", vstring_ratio, false},
      {"partialratio", vstring_partialratio, false},
      {"tokensort", vstring_tokensort, false},
      {"tokenset", vstring_tokenset, false},
  };
  std::vector<std::string> texts = {"", "b a", "a b", " "};
  for (unsigned i = 0; i < 60; ++i) texts.push_back(random_word(i * 37 % (i < 40 ? 9 : 120), 3, i));
  const auto elements = [&] { return list(Values(texts.begin(), texts.end())); };
  for (const Metric& metric : metrics) {
    for (const std::string& word :
         {std::string("abcab"), std::string("a b"), random_word(90, 3, 7)}) {
      std::vector<std::pair<double, std::size_t>> order;
      for (std::size_t i = 0; i < texts.size(); ++i) {
        const double value = std::stod(call(metric.command, {word, texts[i]}));
        order.emplace_back(metric.is_distance ? value : -value, i);
      }
      std::sort(order.begin(), order.end());
      for (const std::size_t k : {1U, 5U, 100U}) {
        std::string expected;
        for (std::size_t r = 0; r < std::min(k, order.size()); ++r) {
          const std::string& text = texts[order[r].second];
          expected += (r > 0 ? ", [" : "[") + quoted(text) + ", " +
                      call(metric.command, {word, text}) + "]";
        }
        ASSERT_EQ(
            "[" + expected + "]",
            call(vstring_closest, {word, elements(), static_cast<std::int64_t>(k), metric.name}))
            << metric.name;
      }
    }
  }
}

TEST(Likeness, ValuesAndRefusals) {
  Check({
      {R"(damerau("abcd", acbd), damerau("a\351", "\351a"), damerau("ab", "bxa"))", "1, 1, 2"},
      {R"(osa("", "abc"), osa("ab", "bxa"), indel("ca", abc), indel("", ""))", "3, 3, 3, 0"},
      {R"(jaro("", ""), jaro("a", ""), jaro("ab", "ba"), jaro(abc, xyz))", "1.0, 0.0, 0.0, 0.0"},
      {R"(jarowinkler("MARTHA", "MARHTA"), jaro("DIXON", "DICKSONX"))",
       "0.9611111111111111, 0.7666666666666666"},
      {R"(ratio("", ""), ratio("a", ""), ratio("ab", "ba"))", "100.0, 0.0, 50.0"},
      {R"(partialratio("abcd", "cdxxxxxx"), partialratio("", abc), partialratio("ab", "ba"))",
       "66.66666666666667, 0.0, 66.66666666666667"},
      {R"(tokenset("a b", "c d"), tokenset("", " "), tokenset("a", "\t"))",
       "33.333333333333336, 100.0, 0.0"},
      {R"(tokenset("mariners vs angels", "los angeles angels at seattle mariners"))",
       "90.9090909090909"},
      {R"(tokensort("b\na", "a b"), tokensort("", " "), tokensort("ab", "b a"))",
       "100.0, 100.0, 80.0"},
      {R"(cosine("banana", banana, 2), cosine("a", "a", 2), cosine("a", "b", 2))", "1.0, 1.0, 0.0"},
      {R"(cosine("abab", "ab", 1), cosine("", "", 2147483647))", "1.0, 1.0"},
      {R"(closest("b", ["a", c, "b"], 9))", R"([["b", 0], ["a", 1], [c, 1]])"},
      {R"(closest("appel", ["ape", "apple", "peach"], 2, osa), closest("a", []))",
       R"([["apple", 1], ["ape", 2]], [])"},
      {R"(closest("ab", ["abc", "ab"], 1, "ratio"))", R"([["ab", 100.0]])"},
      {"damerau(" + quoted(random_word(90, 4, 1)) + ", " + quoted(random_word(80, 4, 2)) + ")",
       std::to_string(distance(random_word(90, 4, 1), random_word(80, 4, 2), 1, Exchanges::any))},
  });
  CheckRefusals({
      {"third argument must be positive", R"(cosine("abc", "abd", 0); closest("a", [], 0, 7))"},
      {"unrecognised metric `\"euclid\"'", R"(closest("a", ["b"], 1, "euclid"))"},
  });
}

}  // namespace
}  // namespace vstring_test
