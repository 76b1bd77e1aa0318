#include "help/describe.h"

#include <iomanip>
#include <ostream>

#include "lexiva/commands.h"
#include "lexiva/methods.h"

namespace velmor {
namespace {

constexpr int kArgumentWidth = 11;

}  // namespace

bool describe_command(std::ostream& out, const std::string& name) {
  const lexiva::Command* const command = lexiva::find(name);
  if (command == nullptr) return false;
  out << command->signature << "\n  " << command->help << '\n';
  for (const lexiva::Alias& alias : lexiva::aliases())
    if (alias.command == std::string(command->name)) out << "  Also called " << alias.name << ".\n";
  for (const lexiva::Argument& argument : lexiva::arguments_of(*command))
    out << "    " << std::left << std::setw(kArgumentWidth) << argument.name << "  "
        << argument.kind << '\n';
  out << "  Returns " << command->returns << ".\n";
  if (*command->notes != '\0') out << "  " << command->notes << '\n';
  if (const lexiva::Method* const method = lexiva::method_of(command->name)) {
    out << "  Cost: " << method->cost << ".\n";
    if (!method->source.empty()) out << "  Source: " << method->source << ".\n";
  }
  out << "\n  > " << command->example << ";\n";
  if (*command->result != '\0') out << "  " << command->result << '\n';
  return true;
}

}  // namespace velmor
