// Alignment by definition.
#pragma once
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace vstring_test {

constexpr std::int64_t kNever = -1'000'000'000;

struct Scores {
  std::int64_t match, mismatch, gap;
};

struct Alignment {
  std::int64_t score = 0;
  std::string columns = {};
};

// The best score, and of the best alignments the one whose columns come first by D < {=, X} < I,
// from the table of what the suffixes can score.
inline Alignment best_alignment(const std::string& s, const std::string& t, const Scores& scores) {
  const std::size_t m = s.size();
  const std::size_t n = t.size();
  std::vector<std::vector<std::int64_t>> table(m + 1, std::vector<std::int64_t>(n + 1));
  const auto letters = [&](std::size_t i, std::size_t j) {
    return table[i + 1][j + 1] + (s[i] == t[j] ? scores.match : scores.mismatch);
  };
  for (std::size_t i = m + 1; i-- > 0;) {
    for (std::size_t j = n + 1; j-- > 0;) {
      if (i == m && j == n) continue;
      table[i][j] = 10 * kNever;
      if (i < m) table[i][j] = table[i + 1][j] + scores.gap;
      if (j < n) table[i][j] = std::max(table[i][j], table[i][j + 1] + scores.gap);
      if (i < m && j < n) table[i][j] = std::max(table[i][j], letters(i, j));
    }
  }
  Alignment best = {table[0][0]};
  for (std::size_t i = 0, j = 0; i < m || j < n;) {
    if (i < m && table[i][j] == table[i + 1][j] + scores.gap) {
      best.columns += 'D';
    } else if (i < m && j < n && table[i][j] == letters(i, j)) {
      best.columns += s[i] == t[j] ? '=' : 'X';
    } else {
      best.columns += 'I';
    }
    const char column = best.columns.back();
    i += column != 'I' ? 1 : 0;
    j += column != 'D' ? 1 : 0;
  }
  return best;
}

inline std::string cigar(const std::string& columns) {
  std::string text;
  for (std::size_t i = 0, end = 0; i < columns.size(); i = end) {
    end = std::min(columns.find_first_not_of(columns[i], i), columns.size());
    text += std::to_string(end - i) + columns[i];
  }
  return text;
}

}  // namespace vstring_test
