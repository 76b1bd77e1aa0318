#include "prompt/complete.h"

#include <algorithm>
#include <set>
#include <vector>

#include "help/answer.h"
#include "help/pages.h"
#include "language/builtins.h"
#include "lexiva/commands.h"

namespace velmor {
namespace {

bool is_word(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

// Where the cursor stands: in a string or quoted name, and in which calls.
struct Place {
  bool quoted = false;
  std::vector<std::string> calls;  // the words before the brackets that are open
};

Place place_of(std::string_view text) {
  Place place;
  char quote = '\0';
  std::string word;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quote != '\0') {
      if (c == '\\')
        ++i;
      else if (c == quote)
        quote = '\0';
      continue;
    }
    if (c == '"' || c == '`') quote = c;
    if (c == '(' || c == '[' || c == '{') place.calls.push_back(c == '(' ? word : "");
    if ((c == ')' || c == ']' || c == '}') && !place.calls.empty()) place.calls.pop_back();
    if (is_word(c))
      word += c;
    else
      word.clear();
  }
  place.quoted = quote != '\0';
  return place;
}

std::set<std::string> candidates(Session& session, std::string_view start) {
  std::set<std::string> found;
  const auto offer = [&](std::string_view word) {
    if (word.starts_with(start)) found.emplace(word);
  };
  for (const std::string& topic : help_topics()) offer(topic);
  for (const OptionWord& option : option_words()) offer(option.word);
  for (const char* word : {"true", "false", "FAIL", "NULL", "for", "in", "do", "end", "and", "or",
                           "not", "help", "quit"})
    offer(word);
  std::vector<std::string> named;
  velmor_each_value(
      session.heap(),
      [](void* list, HostObject name) {
        static_cast<std::vector<std::string>*>(list)->emplace_back(velmor_text(name));
      },
      &named);
  for (const std::string& name : named)
    if (std::ranges::all_of(name, is_word)) offer(name);
  return found;
}

// The signature of a command or function, or what an option word is for.
std::string signature(const std::string& word) {
  if (const lexiva::Command* command = lexiva::find(word)) return command->signature;
  for (const Builtin& builtin : builtins())
    if (word == builtin.name) return builtin.signature;
  for (const OptionWord& option : option_words())
    if (word == option.word)
      return std::string(option.command) + ": " + word + " " + std::string(option.what);
  return "";
}

std::string common_start(const std::set<std::string>& words) {
  const std::string& first = *words.begin();
  const std::string& last = *words.rbegin();
  const auto end = std::ranges::mismatch(first, last).in1;
  return {first.begin(), end};
}

std::string joined(const std::set<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : "  ") + word;
  return text;
}

}  // namespace

Completion complete(Session& session, std::string_view before_cursor) {
  const Place place = place_of(before_cursor);
  if (place.quoted) return {"\t", ""};
  std::size_t begin = before_cursor.size();
  while (begin > 0 && is_word(before_cursor[begin - 1])) --begin;
  const std::string_view start = before_cursor.substr(begin);
  if (start.empty())
    return {"",
            place.calls.empty() ? joined(candidates(session, "")) : signature(place.calls.back())};
  const std::set<std::string> words = candidates(session, start);
  if (words.empty()) return {};
  const std::string common = common_start(words);
  Completion completion{common.substr(start.size()), ""};
  if (words.size() == 1)
    completion.shown = signature(common);
  else if (completion.inserted.empty())
    completion.shown = joined(words);
  return completion;
}

}  // namespace velmor
