// vrx_regexec: one search with a compiled expression that its caller owns.
#include <cstdlib>

#include "host/vstring.h"
#include "search/regex/error.h"
#include "search/regex/matcher.h"
#include "search/regex/plan.h"

namespace vstring::regex {
namespace {

Outcome find_first(const VstringRegex& regex, Bytes text, Match& match) {
  Plan* const plan = make_plan(regex, text.size() >= kWorthHints);
  if (plan == nullptr) return Outcome::out_of_space;
  const Outcome outcome = Matcher(*plan, text).find(0, match);
  std::free(plan);
  return outcome;
}

}  // namespace
}  // namespace vstring::regex

int vrx_regexec(VstringRegex* regex, const char* text) {
  using namespace vstring::regex;
  if (regex == nullptr || text == nullptr) {
    vrx_regerror(errors::kNullParameter);
    return 0;
  }
  if (regex->program[0] != kMagic) {
    vrx_regerror(errors::kCorruptedProgram);
    return 0;
  }
  Match match;
  const Outcome outcome = find_first(*regex, vstring::bytes_of(text), match);
  if (outcome == Outcome::out_of_space) vrx_regerror(errors::kOutOfSpace);
  const bool matched = outcome == Outcome::match;
  for (int i = 0; i < kGroups; ++i) {
    regex->start[i] = matched && match.start(i) != vstring::npos ? text + match.start(i) : nullptr;
    regex->end[i] = matched && match.end(i) != vstring::npos ? text + match.end(i) : nullptr;
  }
  return matched ? 1 : 0;
}
