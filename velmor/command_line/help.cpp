#include "command_line/help.h"

#include <iomanip>
#include <ostream>

#include "lexiva/commands.h"

namespace velmor {
namespace {

constexpr int kArgumentWidth = 13;

}  // namespace

void list_commands(std::ostream& out) {
  constexpr int kNameWidth = 16;
  const char* separator = "";
  for (const lexiva::Family& family : lexiva::families()) {
    if (family.commands.empty() || !family.listed) continue;
    out << separator << family.title << '\n';
    for (const lexiva::Command& command : family.commands)
      out << "  " << std::left << std::setw(kNameWidth) << command.name << ' ' << command.help
          << '\n';
    separator = "\n";
  }
}

bool describe_command(std::ostream& out, const std::string& name) {
  const lexiva::Command* const command = lexiva::find(name);
  if (command == nullptr) return false;
  out << command->signature << "\n  " << command->help << '\n';
  for (const lexiva::Alias& alias : lexiva::aliases())
    if (alias.command == std::string(command->name)) out << "  Also called " << alias.name << ".\n";
  for (const lexiva::Argument& argument : lexiva::arguments_of(*command))
    out << "    " << std::left << std::setw(kArgumentWidth) << argument.name << argument.kind
        << '\n';
  out << "  Returns " << command->returns << ".\n";
  if (*command->notes != '\0') out << "  " << command->notes << '\n';
  out << "\n  > " << command->example << ";\n";
  if (*command->result != '\0') out << "  " << command->result << '\n';
  return true;
}

}  // namespace velmor
