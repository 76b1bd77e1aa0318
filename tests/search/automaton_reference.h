// Search for many patterns by an automaton in its textbook form, in which every state's output
// chain is copied together from the chain of its failure state, entry by entry.
#pragma once
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vstring_test {

struct Found {
  std::size_t position;
  int number;
  bool operator==(const Found&) const = default;
};
using Words = std::vector<std::string>;

class Textbook {
 public:
  explicit Textbook(const Words& patterns, bool prepared = true) : states_(1), levels_(1) {
    for (std::size_t i = 0; i < patterns.size(); ++i) insert(patterns[i], static_cast<int>(i + 1));
    if (prepared) prepare();
  }

  std::vector<Found> search(const std::string& text) const {
    std::vector<Found> found;
    std::size_t s = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      s = follow(s, text[i]);
      for (const auto& [length, number] : states_[s].outputs) {
        found.push_back({i + 1 - length, number});
      }
    }
    return found;
  }

 private:
  using Output = std::pair<std::size_t, int>;  // length and number
  struct Node {
    std::map<char, std::size_t> edges;
    std::size_t fail = 0;
    std::vector<Output> outputs;
  };

  void insert(const std::string& pattern, int number) {
    std::size_t s = 0;
    for (std::size_t depth = 1; depth <= pattern.size(); ++depth) {
      const auto [edge, is_new] = states_[s].edges.try_emplace(pattern[depth - 1], states_.size());
      s = edge->second;
      if (!is_new) continue;
      states_.emplace_back();
      if (levels_.size() <= depth) levels_.emplace_back();
      levels_[depth].push_back(s);
    }
    if (s != 0 && states_[s].outputs.empty()) states_[s].outputs = {{pattern.size(), number}};
  }

  std::size_t follow(std::size_t s, char c) const {
    while (s != 0 && !states_[s].edges.contains(c)) s = states_[s].fail;
    const auto edge = states_[s].edges.find(c);
    return edge == states_[s].edges.end() ? 0 : edge->second;
  }

  void prepare() {
    for (const auto& level : levels_) {
      for (const std::size_t s : level) {
        for (const auto& [c, child] : states_[s].edges) {
          states_[child].fail = follow(states_[s].fail, c);
          const std::vector<Output>& more = states_[states_[child].fail].outputs;
          states_[child].outputs.insert(states_[child].outputs.begin(), more.rbegin(), more.rend());
        }
      }
    }
  }

  std::vector<Node> states_;
  std::vector<std::vector<std::size_t>> levels_;
};

}  // namespace vstring_test
