// Compiles and matches against the reference matcher: the error or its absence, the match and every
// group by each method, replacing and splitting. The input is a pattern, a NUL, a text, a NUL and a
// template; a first byte of 255 asks for damage instead.
#include <cstdlib>
#include <string>

#include "input.h"
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
void run_damaged(VstringRegex* regex, const std::string& text, Input& damage) {
  while (!damage.empty()) {
    const std::size_t at = damage.below(65536);
    regex->program[1 + at % (regex->size - 1U)] = static_cast<unsigned char>(damage.below(256));
  }
  regex->must = nullptr;  // points into what has been damaged
  if (vrx_regexec(regex, text.c_str()) == 0) return;
  require(regex->start[0] >= text.c_str() && regex->start[0] <= regex->end[0] &&
          regex->end[0] <= text.c_str() + text.size());
}

}  // namespace

void vstring_test::try_input(Input& input) {
  std::string pattern = input.text(kLongestPattern + 1);
  const bool is_damaged = pattern.starts_with('\377');
  if (is_damaged) pattern.erase(0, 1);
  const std::string text = input.text(kLongestText);

  const reference::Regex expected(pattern);
  const Compiled compiled(pattern);
  if (!expected.error().empty()) {
    require(compiled.regex == nullptr);
    expect_same(expected.error(), vrx_regerror(nullptr));
    return;
  }
  require(compiled.plan != nullptr);
  if (is_damaged) {
    run_damaged(compiled.regex, text, input);
  } else {
    expect_same("", difference(compiled, expected, text, input.text(kLongestText), kMaxSteps));
  }
}
