// Search with edits and with mismatches by definition.
#pragma once
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace vstring_test {

using Ends = std::vector<std::size_t>;

// Sellers' table, column by column.
inline Ends ends_by_table(const std::string& pattern, const std::string& text, std::int64_t k) {
  const std::size_t m = pattern.size();
  k = std::min(k, static_cast<std::int64_t>(m));
  Ends ends;
  std::vector<std::int64_t> column(m + 1);
  for (std::size_t i = 0; i <= m; ++i) column[i] = static_cast<std::int64_t>(i);
  for (std::size_t j = 0; j < text.size(); ++j) {
    std::int64_t diagonal = 0;
    for (std::size_t i = 1; i <= m; ++i) {
      const std::int64_t other = pattern[i - 1] == text[j] ? 0 : 1;
      const std::int64_t cell = std::min({diagonal + other, column[i] + 1, column[i - 1] + 1});
      diagonal = column[i];
      column[i] = cell;
    }
    if (column[m] <= k) ends.push_back(j + 1);
  }
  return ends;
}

// The shift-and automaton with its masks of 32 bits and its start from zero.
inline Ends ends_by_automaton(const std::string& pattern, const std::string& text,
                              std::int64_t edits) {
  const std::size_t m = pattern.size();
  if (edits < 0 || m == 0) return {};
  std::uint32_t masks[256] = {};
  for (std::size_t j = 0; j < std::min<std::size_t>(m, 32); ++j) {
    masks[static_cast<unsigned char>(pattern[j])] |= std::uint32_t{1} << j;
  }
  const auto k = static_cast<std::size_t>(std::min(edits, static_cast<std::int64_t>(m)));
  std::vector<std::uint64_t> state(k + 1);
  Ends ends;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto mask = static_cast<std::int32_t>(masks[static_cast<unsigned char>(text[i])]);
    const auto wide = static_cast<std::uint64_t>(std::int64_t{mask});
    const std::vector<std::uint64_t> old = state;
    state[0] = (old[0] << 1 | 1) & wide;
    for (std::size_t d = 1; d <= k; ++d) {
      state[d] = ((old[d] << 1 | 1) & wide) | old[d - 1] | state[d - 1] << 1 | old[d - 1] << 1 | 1;
    }
    if ((state[k] >> (m - 1) % 64 & 1) != 0) ends.push_back(i + 1);
  }
  return ends;
}

// Where the pattern stands with at most k bytes exchanged, and with how many.
inline std::vector<std::vector<std::size_t>> places_with_mismatches(const std::string& pattern,
                                                                    const std::string& text,
                                                                    std::size_t k) {
  std::vector<std::vector<std::size_t>> found;
  for (std::size_t i = 0; i + pattern.size() <= text.size(); ++i) {
    std::size_t count = 0;
    for (std::size_t j = 0; j < pattern.size(); ++j) count += pattern[j] != text[i + j] ? 1 : 0;
    if (count > k || (k == 0 && pattern.empty())) continue;
    found.push_back({i + 1, count});
  }
  return found;
}

}  // namespace vstring_test
