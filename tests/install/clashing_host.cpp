// A host that has names of its own for every helper that the library exports. Runs the example of
// every command, and results beyond the scratch buffer.   Usage: clashing_host LIBRARY
#include <dlfcn.h>

#include <iostream>
#include <string>

#include "language/session.h"
#include "lexiva/commands.h"

namespace {

int failures = 0;

void check(velmor::Session& session, const std::string& expression, const std::string& expected) {
  const std::string answer = session.evaluate(expression).text;
  if (answer == expected) return;
  std::cerr << expression << " gives " << answer << ", not " << expected << "\n";
  ++failures;
}

}  // namespace

int main(int argc, char** argv) {
  void* const library = argc == 2 ? dlopen(argv[1], RTLD_NOW | RTLD_GLOBAL) : nullptr;
  if (library == nullptr) {
    std::cerr << "cannot load the library\n";
    return 2;
  }
  velmor::Session session([library](const std::string& entry_point) {
    return reinterpret_cast<VelmorCommand>(dlsym(library, entry_point.c_str()));
  });
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands)
      check(session, command.example, command.result);
  }
  check(session, R"(length(reverse(repeat("ab", 100000))))", "200000");
  check(session, R"(searchx(["ana", "n"], "banana"))", "[3, 2], [2, 1], [5, 2], [4, 1]");
  return failures == 0 ? 0 : 1;
}
