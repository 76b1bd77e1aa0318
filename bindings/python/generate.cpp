// Writes what is made of the table of commands.   Usage: generate functions|signatures
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "lexiva/commands.h"
#include "python_syntax.h"

namespace {

using velmor::lexiva::Command;

template <class Visit>
void each_command(Visit visit) {
  for (const velmor::lexiva::Family& family : velmor::lexiva::families())
    for (const Command& command : family.commands) visit(command);
}

// ---- The functions' table, as C++ ----

std::string c_literal(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    char octal[8];
    std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned char>(c));
    if (c == '\n')
      out += "\\n\"\n        \"";
    else if (c == '"' || c == '\\')
      out += {'\\', c};
    else if (c < ' ' || c == 0x7f)
      out += octal;
    else
      out += c;
  }
  return out + "\"";
}

std::string documentation(const Command& command) {
  std::string text = std::string(command.signature) + "\n\n" + command.help + "\n";
  const auto arguments = velmor::lexiva::arguments_of(command);
  if (!arguments.empty()) text += "\n";
  for (const auto& [name, kind] : arguments)
    text += "  " + std::string(name) + ": " + std::string(kind) + "\n";
  text += "\nReturns " + std::string(command.returns) + ".\n";
  if (*command.notes != '\0') text += std::string(command.notes) + "\n";
  return text + "\n" + vstring_python::python_example(command.example, command.result);
}

void write_functions() {
  each_command([](const Command& command) {
    std::cout << "COMMAND(\"" << command.name << "\", " << command.entry_point << ",\n        "
              << c_literal(documentation(command)) << ")\n";
  });
  for (const auto& [name, command] : velmor::lexiva::aliases())
    std::cout << "ALIAS(\"" << name << "\", \"" << command << "\")\n";
}

// ---- For stub.py ----

void write_signatures() {
  each_command([](const Command& command) {
    std::cout << command.name << '\t' << command.signature << '\t' << command.returns;
    for (const auto& [name, kind] : velmor::lexiva::arguments_of(command))
      std::cout << '\t' << name << ": " << kind;
    std::cout << '\n';
  });
  for (const auto& [name, command] : velmor::lexiva::aliases())
    std::cout << name << "\t=\t" << command << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc == 2 && std::string_view(argv[1]) == "functions")
      write_functions();
    else
      write_signatures();
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
