#include "prompt/terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace velmor {

bool shows_utf8() {
  if (isatty(STDOUT_FILENO) == 0) return false;
  // The first that is set counts, as everywhere; the locale itself need not be installed.
  for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    const std::string locale = value;
    for (const char* charset : {"UTF-8", "utf-8", "UTF8", "utf8"})
      if (locale.find(charset) != locale.npos) return true;
    return false;
  }
  return false;
}

void display_for_terminal(Session& session) {
  if (!shows_utf8()) return;
  session.display = [&session](HostObject object) {
    const std::unique_ptr<char, decltype(&std::free)> text(
        velmor_print_utf8(session.heap(), object), &std::free);
    if (text == nullptr) throw Failure("out of memory");
    return std::string(text.get());
  };
}

}  // namespace velmor
