#include "prompt/prompt.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "command_line/read_file.h"
#include "help/answer.h"
#include "help/pager.h"
#include "language/script.h"
#include "prompt/checkpoint.h"
#include "prompt/editor.h"

namespace velmor {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == text.npos) return "";
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

bool says_quit(std::string_view line) {
  line = trimmed(line);
  if (line.ends_with(';')) line = trimmed(line.substr(0, line.size() - 1));
  return line == "quit" || line == "exit";
}

// What is asked when a line asks for help: "?take", "??word", "help", "help take".
std::optional<std::string> help_request(std::string_view line) {
  line = trimmed(line);
  if (line.starts_with('?')) return std::string(line.substr(1));
  constexpr std::string_view kHelp = "help";
  if (!line.starts_with(kHelp)) return std::nullopt;
  line.remove_prefix(kHelp.size());
  if (line.empty() || line == ";") return "";
  if (kBlanks.find(line[0]) == kBlanks.npos) return std::nullopt;  // another word
  const std::string_view request = trimmed(line);
  const bool is_statement = request.starts_with(":=") || request.starts_with('=');
  return is_statement ? std::nullopt : std::optional<std::string>(request);
}

void give_help(const std::string& request) {
  if (const auto text = help_text(request))
    show_help(*text);
  else
    std::cout << "Error, " << no_help(request) << '\n';
}

}  // namespace

void prompt(Session& session) {
  std::cout << "velmor " VELMOR_VERSION ": ? for help, Tab completes, quit leaves.\n";
  Editor editor(session);
  Script script(session, std::cout, std::cerr, "", EndsOfStatements::kLines);
  std::string line, statement;
  script.before_statement = [&] {
    if (!statement.empty()) editor.remember(statement);
    statement.clear();
    if (!Checkpoint::set()) return;
    std::cout << '\n' << std::flush;  // behind the ^C that the terminal shows
    throw Interrupted();
  };
  script.after_statement = Checkpoint::clear;
  for (;;) {
    const Editor::Event event = editor.read(script.open() ? ".. " : "> ", line);
    if (event == Editor::Event::kEnd) break;
    if (event == Editor::Event::kInterrupted) {
      script.drop();
      statement.clear();
      continue;
    }
    if (!script.open()) {
      statement.clear();
      if (says_quit(line)) return;
      if (const auto request = help_request(line)) {
        editor.remember(line);
        give_help(*request);
        continue;
      }
    }
    // A statement of several lines is one entry, but a comment would swallow what follows it.
    if (line.find('#') != line.npos) {
      if (!statement.empty()) editor.remember(std::exchange(statement, {}));
      editor.remember(line);
    } else {
      statement += (statement.empty() ? "" : " ") + line;
    }
    script.feed(line + '\n');
  }
  std::cout << '\n';
}

Verdict run_standard_input(Session& session) {
  Script script(session, std::cout, std::cerr, "standard input");
  bool first = true;
  for (std::string line; std::getline(std::cin, line);) {
    if (std::exchange(first, false)) remove_byte_order_mark(line);
    if (!script.open() && says_quit(line)) break;
    script.feed(line + '\n');
  }
  if (std::ferror(stdin) != 0)
    throw std::runtime_error(std::string("cannot read standard input: ") + std::strerror(errno));
  return script.finish();
}

}  // namespace velmor
