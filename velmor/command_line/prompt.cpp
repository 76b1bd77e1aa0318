#include "command_line/prompt.h"

#include <editline/readline.h>

#include <clocale>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

#include "language/script.h"

namespace velmor {
namespace {

bool says_quit(const std::string& line) {
  return line == "quit" || line == "quit;" || line == "exit" || line == "exit;";
}

// A line without its newline; null at the end of input. The editor must know which bytes make a
// character, while commands are to run in the "C" locale, whatever they set themselves.
std::unique_ptr<char, decltype(&std::free)> edited_line(const char* prompt) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  char* const line = readline(prompt);
  std::setlocale(LC_CTYPE, "C");
  return {line, &std::free};
}

}  // namespace

void prompt(Session& session) {
  std::cout << "velmor " VELMOR_VERSION ": quit leaves.\n" << std::flush;
  Script script(session, std::cout, std::cerr);
  for (;;) {
    const auto line = edited_line(script.open() ? "  " : "> ");
    if (line == nullptr) break;
    if (!script.open() && says_quit(line.get())) return;
    script.feed(line.get() + std::string("\n"));
  }
  std::cout << '\n';
  script.finish();
}

Verdict run_standard_input(Session& session) {
  Script script(session, std::cout, std::cerr, "standard input");
  for (std::string line; std::getline(std::cin, line);) script.feed(line + '\n');
  return script.finish();
}

}  // namespace velmor
