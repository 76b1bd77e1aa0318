#include "support/instructions.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vstring_test {

std::uint64_t instructions(const std::string& expression) {
  const std::string command =
      "/usr/bin/valgrind --tool=cachegrind --cache-sim=no "
      "--cachegrind-out-file=/dev/null " VELMOR_EXECUTABLE " --library " VSTRING_LIBRARY_FILE
      " -e '" +
      expression + "' 2>&1 >/dev/null";
  std::FILE* const output = popen(command.c_str(), "r");
  if (output == nullptr) return 0;
  std::string count;
  for (char line[256]; std::fgets(line, sizeof line, output) != nullptr;) {
    const char* const found = std::strstr(line, "I   refs:");
    if (found == nullptr) continue;
    for (const char* c = found; *c != '\0'; ++c) {
      if (*c >= '0' && *c <= '9') count += *c;  // thousands stand apart
    }
  }
  const bool is_good = pclose(output) == 0;
  return is_good ? std::strtoull(count.c_str(), nullptr, 10) : 0;
}

}  // namespace vstring_test
