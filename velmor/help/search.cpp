#include "help/search.h"

#include <algorithm>
#include <utility>

#include "language/suggest.h"
#include "lexiva/keywords.h"

namespace velmor {
namespace {

bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

template <typename Action>
void for_each_word(std::string_view text, Action action) {
  for (std::size_t at = 0; at < text.size();) {
    if (!is_letter(text[at])) {
      ++at;
      continue;
    }
    std::string word;
    for (; at < text.size() && is_letter(text[at]); ++at) word += small(text[at]);
    action(word);
  }
}

// How well a word fits one of a text: 4 it is one, 3 one begins with it, 2 one differs by a slip.
int fit(const std::string& wanted, std::string_view text, bool slips) {
  int best = 0;
  for_each_word(text, [&](const std::string& word) {
    if (word == wanted)
      best = std::max(best, 4);
    else if (wanted.size() >= 3 && word.starts_with(wanted))
      best = std::max(best, 3);
    else if (slips && wanted.size() >= 5 && typing_distance(wanted, word) == 1)
      best = std::max(best, 2);
  });
  return best;
}

int fit(const std::string& wanted, const lexiva::Command& command, bool slips) {
  const int name = fit(wanted, command.name, slips);
  const int keyword = fit(wanted, lexiva::keywords(command.name), slips);
  const int help = std::max(fit(wanted, command.help, slips), fit(wanted, command.notes, slips));
  return std::max({3 * name, 2 * keyword, help});
}

}  // namespace

std::vector<const lexiva::Command*> search_commands(std::string_view words, bool slips) {
  std::vector<std::pair<int, const lexiva::Command*>> found;
  for (const lexiva::Family& family : lexiva::families()) {
    if (!family.listed) continue;
    for (const lexiva::Command& command : family.commands) {
      int total = 0;
      bool all = true;
      for_each_word(words, [&](const std::string& word) {
        const int one = fit(word, command, slips);
        all = all && one > 0;
        total += one;
      });
      if (all && total > 0) found.emplace_back(total, &command);
    }
  }
  std::ranges::stable_sort(found, [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<const lexiva::Command*> commands;
  commands.reserve(found.size());
  for (const auto& [score, command] : found) commands.push_back(command);
  return commands;
}

}  // namespace velmor
