// Help on what is no command: the language, classes of bytes, option words.
#pragma once
#include <span>
#include <string>
#include <string_view>

namespace velmor {

struct Page {
  const char* topic;
  const char* title;
  std::string (*text)();
};

std::span<const Page> pages();

// A word that a command takes as it stands: an option, or the value of one.
struct OptionWord {
  std::string_view command, word, what;
};

std::span<const OptionWord> option_words();

}  // namespace velmor
