// What the command line declares, as the manual page and the completions of shells need it.
#pragma once
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace velmor {

struct OptionOutline {
  std::vector<std::string> names;  // such as "-j", "--init"
  std::string argument;            // what it takes, such as "PATH"; empty for none
  std::string description;
};

struct PositionalOutline {
  std::string name;
  std::string description;
  bool required;
  bool repeated;
};

struct Outline {
  std::string name;
  std::string description;
  std::vector<PositionalOutline> positionals;
  std::vector<OptionOutline> options;
  std::vector<Outline> subcommands;
  std::string footer;
};

Outline outline_of(const CLI::App& app);

}  // namespace velmor
