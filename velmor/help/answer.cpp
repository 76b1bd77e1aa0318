#include "help/answer.h"

#include <algorithm>
#include <sstream>

#include "help/describe.h"
#include "help/pages.h"
#include "help/search.h"
#include "language/builtins.h"
#include "language/suggest.h"
#include "lexiva/commands.h"

namespace velmor {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n;";
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == text.npos) return "";
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

bool contains_ignoring_case(std::string_view text, std::string_view part) {
  const auto same = [](char a, char b) { return std::tolower(a) == std::tolower(b); };
  return std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

std::string line_of(const lexiva::Command& command) {
  std::string name = command.name;
  if (name.size() < 16) name.resize(16, ' ');
  return "  " + name + ' ' + command.help + '\n';
}

std::string families() {
  std::string text;
  for (const lexiva::Family& family : lexiva::families()) {
    if (!family.listed) continue;
    text += std::string(family.title) + "\n ";
    for (const lexiva::Command& command : family.commands) text += std::string(" ") + command.name;
    text += "\n\n";
  }
  text += "The language\n ";
  for (const Builtin& builtin : builtins()) text += std::string(" ") + builtin.name;
  text += "\n\nhelp take (or ?take) explains a command, ??word searches, and there are pages:\n";
  for (const Page& page : pages())
    text += std::string("  help ") + page.topic + ": " + page.title + "\n";
  return text;
}

// The families in whose title the word stands, a line for each command.
std::string families_called(std::string_view word) {
  std::string text;
  if (word.size() < 4) return text;
  for (const lexiva::Family& family : lexiva::families()) {
    if (!contains_ignoring_case(family.title, word)) continue;
    text += (text.empty() ? "" : "\n") + std::string(family.title) + "\n";
    for (const lexiva::Command& command : family.commands) text += line_of(command);
  }
  return text;
}

std::string topic(const std::string& word) {
  std::ostringstream text;
  describe_command(text, word);
  for (const Builtin& builtin : builtins()) {
    if (word != builtin.name) continue;
    text << builtin.signature << "\n  " << builtin.help << "\n\n  > " << builtin.example << ";\n";
    if (*builtin.result != '\0') text << "  " << builtin.result << '\n';
  }
  for (const Page& page : pages())
    if (word == page.topic) text << page.text();
  return text.str();
}

// With few hits, each with its example: often that is all one wanted to know.
std::string searched(std::string_view words, bool slips) {
  constexpr std::size_t kFew = 8;
  const auto found = search_commands(words, slips);
  std::string text;
  for (const lexiva::Command* command : found) {
    text += line_of(*command);
    if (found.size() <= kFew && *command->result != '\0')
      text += std::string(21, ' ') + command->example + " gives " + command->result + '\n';
  }
  return text;
}

}  // namespace

std::optional<std::string> help_text(std::string_view request, bool exact) {
  std::string_view words = trimmed(request);
  if (words.empty()) return families();
  std::string text;
  if (words[0] == '?') {
    text = searched(words.substr(1), true);
  } else {
    text = topic(std::string(words));
    if (text.empty() && !exact) text = families_called(words);
    if (text.empty() && !exact) text = searched(words, false);
  }
  if (text.empty()) return std::nullopt;
  return text;
}

std::string no_help(std::string_view request) {
  std::string_view words = trimmed(request);
  words.remove_prefix(std::min(words.find_first_not_of("? "), words.size()));
  const std::string meant = nearest(words, help_topics());
  return "no help on " + std::string(words) +
         (meant.empty() ? "" : "; did you mean " + meant + "?");
}

std::vector<std::string> help_topics() {
  std::vector<std::string> topics;
  for (const lexiva::Family& family : lexiva::families())
    for (const lexiva::Command& command : family.commands)
      if (family.listed) topics.emplace_back(command.name);
  for (const lexiva::Alias& alias : lexiva::aliases()) topics.emplace_back(alias.name);
  for (const Builtin& builtin : builtins()) topics.emplace_back(builtin.name);
  for (const Page& page : pages()) topics.emplace_back(page.topic);
  return topics;
}

}  // namespace velmor
