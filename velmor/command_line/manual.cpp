#include "command_line/manual.h"

#include <ostream>
#include <string>
#include <string_view>

#include "lexiva/commands.h"
#include "manual/roff.h"

namespace velmor {
namespace {

using roff::bold;
using roff::italic;
using roff::plain;

void write_entry(std::ostream& out, const std::string& head, std::string_view text) {
  out << ".TP\n" << head << '\n' << plain(text) << ".\n";
}

void write_options(std::ostream& out, const Outline& outline) {
  for (const OptionOutline& option : outline.options) {
    std::string head;
    for (const std::string& name : option.names) head += (head.empty() ? "" : ", ") + bold(name);
    if (!option.argument.empty()) head += " " + italic(option.argument);
    write_entry(out, head, option.description);
  }
}

std::string synopsis_of(const Outline& outline) {
  std::string line = bold(outline.name);
  if (!outline.options.empty()) line += " [" + italic("OPTION") + " ...]";
  for (const PositionalOutline& positional : outline.positionals) {
    const std::string name = italic(positional.name) + (positional.repeated ? " ..." : "");
    line += " " + (positional.required ? name : "[" + name + "]");
  }
  return line;
}

void write_commands(std::ostream& out) {
  out << ".SH COMMANDS\n"
      << bold("velmor help") << " " << italic("COMMAND")
      << " shows each of them with an example.\n";
  for (const lexiva::Family& family : lexiva::families()) {
    if (family.commands.empty() || !family.listed) continue;
    out << ".SS " << plain(family.title) << '\n';
    for (const lexiva::Command& command : family.commands)
      out << ".TP\n" << bold(command.signature) << '\n' << plain(command.help) << '\n';
  }
}

}  // namespace

void write_manual(std::ostream& out, const Outline& program) {
  out << ".TH VELMOR 1 \"\" \"velmor " VELMOR_VERSION "\" \"User Commands\"\n"
      << ".SH NAME\nvelmor \\- string commands at a prompt, in scripts and for lines of text\n"
      << ".SH SYNOPSIS\n"
      << synopsis_of(program) << '\n';
  for (const Outline& subcommand : program.subcommands)
    out << ".br\n" << bold(program.name) << " " << synopsis_of(subcommand) << '\n';
  out << ".SH DESCRIPTION\n"
      << plain(program.description)
      << " Without arguments, talks with the user at a terminal, or runs the statements that come "
         "in "
         "on standard input.\n"
      << ".SH OPTIONS\n";
  write_options(out, program);
  out << ".TP\n" << bold("--") << "\nEnds the options: what follows is EXPR or FILE.\n";
  for (const Outline& subcommand : program.subcommands) {
    out << ".SH " << bold(program.name + " " + subcommand.name) << '\n'
        << plain(subcommand.description) << ".\n";
    write_options(out, subcommand);
    if (!subcommand.footer.empty()) out << roff::verbatim(subcommand.footer);
  }
  out << roff::verbatim(program.footer);
  write_commands(out);
  out << ".SH ENVIRONMENT\n";
  write_entry(out, bold("VSTRING_LIBRARY"), "The library to load, unless --library names one");
  write_entry(out, bold("XDG_STATE_HOME"),
              "Where the history of the prompt is kept, as velmor/history; else ~/.local/state");
  write_entry(out, bold("TERM, NO_COLOR"),
              "On a dumb terminal nothing is drawn over; with NO_COLOR nothing is coloured");
}

}  // namespace velmor
