// The commands of the Lexiva package: one row each, which binds a name to an entry point of the
// library and says what it does. Help, completion and the tests of the examples are made from these
// rows.
#pragma once
#include <span>
#include <string_view>

namespace velmor::lexiva {

struct Command {
  const char* name;
  const char* entry_point;
  const char* signature;  // square brackets mark optional arguments
  const char* help;       // one line, a sentence
  const char* example;    // an expression that always gives the same
  const char* result;     // which prints as this
};

struct Family {
  const char* title;
  std::span<const Command> commands;
};

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
