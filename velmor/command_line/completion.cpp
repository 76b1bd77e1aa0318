#include "command_line/completion.h"

#include <ostream>
#include <string_view>

#include "lexiva/commands.h"

namespace velmor {
namespace {

constexpr std::string_view kShells = "bash zsh fish";

bool takes_file(const OptionOutline& option) { return option.argument == "PATH"; }

// Words that may follow `velmor help`.
std::string help_words(const Outline& program) {
  std::string words;
  for (const Outline& subcommand : program.subcommands) words += subcommand.name + " ";
  for (const lexiva::Family& family : lexiva::families())
    for (const lexiva::Command& command : family.commands)
      if (family.listed) words += command.name + std::string(" ");
  words.pop_back();
  return words;
}

// What may follow a subcommand, besides options: words, or names of files when that is empty.
std::string words_after(const Outline& program, const Outline& subcommand) {
  if (subcommand.name == "help") return help_words(program);
  if (subcommand.name == "completion") return std::string(kShells);
  return "";
}

std::string option_words(const Outline& outline) {
  std::string words;
  for (const OptionOutline& option : outline.options)
    for (const std::string& name : option.names) words += (words.empty() ? "" : " ") + name;
  return words;
}

// Within single quotes; `special` characters are escaped with a backslash besides.
std::string quoted(std::string_view text, std::string_view special = "") {
  std::string result = "'";
  for (const char c : text) {
    if (special.find(c) != special.npos) result += '\\';
    result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  }
  return result + "'";
}

// ---- bash ----

void write_bash(std::ostream& out, const Outline& program) {
  std::string subcommands, with_file, with_other;
  const auto note_arguments = [&](const Outline& outline) {
    for (const OptionOutline& option : outline.options)
      for (const std::string& name : option.names)
        if (!option.argument.empty()) (takes_file(option) ? with_file : with_other) += name + "|";
  };
  note_arguments(program);
  for (const Outline& subcommand : program.subcommands) {
    subcommands += (subcommands.empty() ? "" : "|") + subcommand.name;
    note_arguments(subcommand);
  }
  with_file.pop_back();
  with_other.pop_back();
  out << "# Completion of velmor for bash: source this file.\n"
         "_velmor() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}\n"
         "  local i subcommand= words= options=\n"
         "  for ((i = 1; i < COMP_CWORD; i++)); do\n"
         "    case ${COMP_WORDS[i]} in\n"
         "      "
      << subcommands
      << ") subcommand=${COMP_WORDS[i]}; break ;;\n"
         "    esac\n"
         "  done\n"
         "  COMPREPLY=()\n"
         "  case $before in\n"
         "    "
      << with_file
      << ") COMPREPLY=($(compgen -f -- \"$word\")); return ;;\n"
         "    "
      << with_other
      << ") return ;;\n"
         "  esac\n"
         "  case $subcommand in\n";
  for (const Outline& subcommand : program.subcommands) {
    out << "    " << subcommand.name << ") options=" << quoted(option_words(subcommand));
    if (const std::string words = words_after(program, subcommand); !words.empty())
      out << " words=" << quoted(words);
    out << " ;;\n";
  }
  std::string all = subcommands;
  for (char& c : all)
    if (c == '|') c = ' ';
  out << "    *) options=" << quoted(option_words(program)) << " words=" << quoted(all) << " ;;\n"
      << "  esac\n"
         "  case $word in\n"
         "    -*) words=$options ;;\n"
         "  esac\n"
         "  COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n"
         "}\n"
         "complete -o bashdefault -o default -F _velmor velmor\n";
}

// ---- zsh ----

void write_zsh_options(std::ostream& out, const Outline& outline, std::string_view indent) {
  for (const OptionOutline& option : outline.options) {
    for (const std::string& name : option.names) {
      std::string word = "*" + name + "[" + option.description + "]";
      std::string spec = quoted(word, "");
      spec.pop_back();
      if (!option.argument.empty())
        spec += ":" + option.argument + ":" + (takes_file(option) ? "_files" : "");
      out << indent << spec << "' \\\n";
    }
  }
}

void write_zsh(std::ostream& out, const Outline& program) {
  out << "#compdef velmor\n"
         "# Completion of velmor for zsh.\n"
         "_velmor() {\n"
         "  local context state state_descr line\n"
         "  typeset -A opt_args\n"
         "  _arguments -C \\\n";
  write_zsh_options(out, program, "    ");
  out << "    '1: :->first' \\\n"
         "    '*:: :->rest'\n"
         "  case $state in\n"
         "    first)\n"
         "      local -a subcommands=(\n";
  for (const Outline& subcommand : program.subcommands)
    out << "        " << quoted(subcommand.name + ":" + subcommand.description) << '\n';
  out << "      )\n"
         "      _describe subcommand subcommands\n"
         "      _files\n"
         "      ;;\n"
         "    rest)\n"
         "      case $words[1] in\n";
  for (const Outline& subcommand : program.subcommands) {
    out << "        " << subcommand.name << ")\n"
        << "          _arguments \\\n";
    write_zsh_options(out, subcommand, "            ");
    const std::string words = words_after(program, subcommand);
    if (words.empty() && !subcommand.positionals.empty())
      out << "            '1:EXPR:' '*:file:_files'\n";
    else if (words.empty())
      out << "            ''\n";
    else
      out << "            '*:word:(" << words << ")'\n";
    out << "          ;;\n";
  }
  out << "        *) _files ;;\n"
         "      esac\n"
         "      ;;\n"
         "  esac\n"
         "}\n"
         "if [ \"$funcstack[1]\" = _velmor ]; then _velmor \"$@\"; else compdef _velmor velmor; "
         "fi\n";
}

// ---- fish ----

void write_fish_options(std::ostream& out, const Outline& outline, const std::string& condition) {
  for (const OptionOutline& option : outline.options) {
    out << "complete -c velmor -n " << quoted(condition);
    for (const std::string& name : option.names)
      out << (name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1));
    if (!option.argument.empty()) out << (takes_file(option) ? " -r -F" : " -x");
    out << " -d " << quoted(option.description, "\\") << '\n';
  }
}

void write_fish(std::ostream& out, const Outline& program) {
  out << "# Completion of velmor for fish.\n";
  write_fish_options(out, program, "__fish_use_subcommand");
  for (const Outline& subcommand : program.subcommands) {
    out << "complete -c velmor -n __fish_use_subcommand -a " << subcommand.name << " -d "
        << quoted(subcommand.description, "\\") << '\n';
    const std::string within = "__fish_seen_subcommand_from " + subcommand.name;
    write_fish_options(out, subcommand, within);
    if (const std::string words = words_after(program, subcommand); !words.empty())
      out << "complete -c velmor -n " << quoted(within) << " -f -a " << quoted(words) << '\n';
  }
}

}  // namespace

void write_completion(std::ostream& out, const Outline& program, const std::string& shell) {
  if (shell == "bash") write_bash(out, program);
  if (shell == "zsh") write_zsh(out, program);
  if (shell == "fish") write_fish(out, program);
}

}  // namespace velmor
