// Compiles and matches against the reference matcher: the error or its absence, the match and every
// group by each method, replacing and splitting. The input is a pattern, a NUL, a text, a NUL and a
// template; a first byte of 255 asks for damage instead.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "search/regex_comparison.h"

namespace {

using namespace vstring_test;

constexpr std::size_t kLongestPattern = 64;
constexpr std::size_t kLongestText = 64;
constexpr std::size_t kMaxSteps = 20000;  // of the reference, which is exponential

void require(bool condition) {
  if (!condition) std::abort();
}

// Whatever a program has been overwritten with, a match must end, within the text.
void run_damaged(VstringRegex* regex, const std::string& text, std::string_view damage) {
  for (std::size_t i = 0; i + 2 < damage.size(); i += 3) {
    const auto at = static_cast<std::size_t>(static_cast<unsigned char>(damage[i])) << 8 |
                    static_cast<unsigned char>(damage[i + 1]);
    regex->program[1 + at % (regex->size - 1U)] = static_cast<unsigned char>(damage[i + 2]);
  }
  regex->must = nullptr;  // points into what has been damaged
  if (vrx_regexec(regex, text.c_str()) == 0) return;
  require(regex->start[0] >= text.c_str() && regex->start[0] <= regex->end[0] &&
          regex->end[0] <= text.c_str() + text.size());
}

std::string_view take(std::string_view& rest, std::size_t longest) {
  const std::size_t end = std::min(rest.find('\0'), rest.size());
  const std::string_view part = rest.substr(0, std::min(end, longest));
  rest.remove_prefix(end < rest.size() ? end + 1 : end);
  return part;
}

}  // namespace

// What the fuzzing engine calls; no header of its own declares it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  const bool is_damaged = !rest.empty() && rest[0] == '\377';
  if (is_damaged) rest.remove_prefix(1);
  const std::string pattern(take(rest, kLongestPattern));
  const std::string text(take(rest, kLongestText));

  const reference::Regex expected(pattern);
  const Compiled compiled(pattern);
  if (!expected.error().empty()) {
    require(compiled.regex == nullptr && expected.error() == vrx_regerror(nullptr));
    return 0;
  }
  require(compiled.plan != nullptr);
  if (is_damaged) {
    run_damaged(compiled.regex, text, rest);
  } else {
    const std::string replacement(take(rest, kLongestText));
    require(difference(compiled, expected, text, replacement, kMaxSteps).empty());
  }
  return 0;
}
