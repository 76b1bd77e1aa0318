#include "support/instructions.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vstring_test {

namespace {

// The number behind `mark` in what a tool of valgrind says of the host's evaluation of
// `expression`; 0 when the host fails.
std::uint64_t counted(const std::string& tool, const char* mark, const std::string& expression) {
  const std::string command = "/usr/bin/valgrind --tool=" + tool +
                              " " VELMOR_EXECUTABLE " --library " VSTRING_LIBRARY_FILE " -e '" +
                              expression + "' 2>&1 >/dev/null";
  std::FILE* const output = popen(command.c_str(), "r");
  if (output == nullptr) return 0;
  std::string count;
  for (char line[256]; std::fgets(line, sizeof line, output) != nullptr;) {
    const char* const found = std::strstr(line, mark);
    if (found == nullptr) continue;
    for (const char* c = found; *c != '\0'; ++c) {
      if (*c >= '0' && *c <= '9') count += *c;  // thousands stand apart
    }
  }
  const bool is_good = pclose(output) == 0;
  return is_good ? std::strtoull(count.c_str(), nullptr, 10) : 0;
}

}  // namespace

std::uint64_t instructions(const std::string& expression) {
  return counted("cachegrind --cache-sim=no --cachegrind-out-file=/dev/null",
                 "I   refs:", expression);
}

std::uint64_t call_instructions(const std::string& call) {
  const std::string tool =
      "callgrind --callgrind-out-file=/dev/null --collect-atstart=no --toggle-collect=vstring_" +
      call.substr(0, call.find('('));
  return counted(tool, "Collected :", call + ", " + call) - counted(tool, "Collected :", call);
}

}  // namespace vstring_test
