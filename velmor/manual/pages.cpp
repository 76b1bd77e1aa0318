#include "manual/pages.h"

#include <ostream>

#include "lexiva/methods.h"
#include "manual/errors.h"
#include "manual/roff.h"

namespace velmor {
namespace {

using lexiva::Command;
using lexiva::Family;
using roff::bold;
using roff::italic;
using roff::plain;

std::string page_of(const Family& family) { return std::string("vstring-") + family.page; }

std::string first_small(std::string text) {
  if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z')
    text[0] = static_cast<char>(text[0] - 'A' + 'a');
  return text;
}

// A list of names of manual pages, as SEE ALSO has them.
void write_references(std::ostream& out) {
  out << ".SH SEE ALSO\n" << bold("velmor") << "(1),\n" << bold("vstring") << "(3),\n";
  for (const Family& family : lexiva::families())
    if (family.listed) out << bold(page_of(family)) << "(3),\n";
  out << bold("vstring-host") << "(3)\n";
}

void write_command(std::ostream& out, const Command& command, Session& session) {
  out << ".SS " << plain(command.signature) << '\n' << plain(command.help) << '\n';
  for (const lexiva::Alias& alias : lexiva::aliases())
    if (alias.command == std::string_view(command.name))
      out << "Also called " << bold(alias.name) << ".\n";
  for (const lexiva::Argument& argument : lexiva::arguments_of(command))
    out << ".TP 14\n" << italic(argument.name) << '\n' << plain(argument.kind) << '\n';
  out << ".PP\nReturns " << plain(command.returns) << ".\n";
  if (*command.notes != '\0') out << ".PP\n" << plain(command.notes) << '\n';
  const std::vector<std::string> errors = errors_of(session, command);
  if (!errors.empty()) out << ".PP\nErrors, such as:\n";
  for (const std::string& error : errors) out << ".br\n" << plain("  " + error) << '\n';
  if (const lexiva::Method* const method = lexiva::method_of(command.name)) {
    out << ".PP\nCost: " << plain(method->cost) << ".\n";
    if (!method->source.empty()) out << ".PP\nSource: " << plain(method->source) << ".\n";
  }
  out << roff::verbatim("  > " + std::string(command.example) + ";\n" +
                        (*command.result == '\0' ? "" : "  ") + command.result);
}

}  // namespace

void write_overview(std::ostream& out) {
  out << ".TH VSTRING 3 \"\" \"vstring " VELMOR_VERSION "\" \"vstring\"\n"
      << ".SH NAME\nvstring \\- string commands for computer\\-algebra hosts\n"
      << ".SH SYNOPSIS\n"
      << bold("#include <vstring.h>") << "\n.PP\n"
      << bold("HostObject vstring_") << italic("command") << bold("(const HostTable *")
      << italic("host") << bold(", HostObject ") << italic("argseq") << bold(");")
      << "\n.PP\nLink with " << italic("-lvstring") << ".\n"
      << ".SH DESCRIPTION\n"
      << plain(
             "Commands over byte strings, which a host calls with its table of operations and a "
             "sequence of arguments. A text holds bytes from 1 to 255; positions count from 1, and "
             "-1 is the last byte. Arguments are checked in their order, and surplus ones ignored. "
             "No command changes an argument.\n")
      << ".SH COMMANDS\n";
  for (const Family& family : lexiva::families()) {
    if (!family.listed) continue;
    out << ".TP\n" << bold(page_of(family)) << "(3)\n" << plain(family.title) << ":\n";
    for (const Command& command : family.commands)
      out << plain(command.name) << (&command == &family.commands.back() ? ".\n" : ",\n");
  }
  out << ".SH ERRORS\n"
      << plain(
             "A call that cannot be answered is raised through the host, with one message; nothing "
             "is changed then. First the number of arguments is checked, then the kind of each. "
             "What a command says when nothing is found is no error: 0, an empty string or list, "
             "or FAIL, as its page tells.\n");
  write_references(out);
}

void write_family(std::ostream& out, const Family& family, Session& session) {
  out << ".TH " << plain(page_of(family)) << " 3 \"\" \"vstring " VELMOR_VERSION
      << "\" \"vstring\"\n.SH NAME\n"
      << plain(page_of(family)) << " \\- " << plain(first_small(family.title)) << '\n';
  for (const Command& command : family.commands) {
    const std::string_view help = command.help;
    out << ".br\n" << command.name << " \\- " << plain(help.substr(0, help.rfind('.'))) << '\n';
  }
  out << ".SH DESCRIPTION\n"
      << "In the notation of " << bold("velmor") << "(1); square brackets mark what may be left "
      << "out. From C, a command is the function vstring_" << italic("command") << "; see "
      << bold("vstring") << "(3).\n";
  for (const Command& command : family.commands) write_command(out, command, session);
  write_references(out);
}

}  // namespace velmor
