// The commands of the Lexiva package: one row each, which binds a name to an entry point of the
// library and says what it does. Help, completion and the tests of the examples are made from these
// rows.
#pragma once
#include <span>
#include <string_view>
#include <vector>

namespace velmor::lexiva {

struct Command {
  const char* name;
  const char* entry_point;
  const char* signature;     // square brackets mark optional arguments
  const char* help;          // one line, a sentence
  const char* example;       // an expression that always gives the same
  const char* result;        // which prints as this
  const char* returns = "";  // what kind of value, and which when nothing is found
  const char* notes = "";    // what else one should know, whole sentences
};

struct Family {
  const char* page;  // of the manual, behind "vstring-"
  const char* title;
  std::span<const Command> commands;
  bool listed = true;  // in help and completion
};

// What the arguments in the command's signature are, such as {"s", "a string"}, in their order.
struct Argument {
  std::string_view name;
  std::string_view kind;
};
std::vector<Argument> arguments_of(const Command& command);

// Another name of a command.
struct Alias {
  const char* name;
  const char* command;
};

std::span<const Family> families();
std::span<const Alias> aliases();

// The command with this name or alias; null when there is none.
const Command* find(std::string_view name);

}  // namespace velmor::lexiva
