// vrx_regexec: one search with a compiled expression that its caller owns.
#include <cstdlib>
#include <cstring>

#include "host/vstring.h"
#include "search/regex/error.h"
#include "search/regex/matcher.h"
#include "search/regex/plan.h"
#include "search/regex/prepare.h"

namespace vstring::regex {
namespace {

// Whether one look at the text shows that nothing matches: the literal or the byte that every match
// needs does not stand in it.
bool refused_at_sight(const VstringRegex& regex, Bytes text) {
  if (regex.must != nullptr && regex.must_length > 0) {
    const std::size_t length = strnlen(regex.must, static_cast<std::size_t>(regex.must_length));
    if (memmem(text.data(), text.size(), regex.must, length) == nullptr) return true;
  }
  return regex.anchored == 0 && regex.first_byte != 0 &&
         std::memchr(text.data(), regex.first_byte, text.size()) == nullptr;
}

}  // namespace
}  // namespace vstring::regex

int vrx_regexec(VstringRegex* regex, const char* text) {
  using namespace vstring::regex;
  const auto refuse = [](const char* message) {
    vrx_regerror(message);
    return 0;
  };
  if (regex == nullptr || text == nullptr) return refuse(errors::kNullParameter);
  if (regex->program[0] != kMagic) return refuse(errors::kCorruptedProgram);
  const vstring::Bytes bytes = vstring::bytes_of(text);
  if (refused_at_sight(*regex, bytes)) return 0;  // the groups stay as they are
  Match match;
  Plan* const plan = make_plan(*regex, bytes.size() >= kWorthHints);
  const Outcome outcome =
      plan == nullptr ? Outcome::out_of_space : Matcher(*plan, bytes).find(0, match);
  std::free(plan);
  if (outcome == Outcome::out_of_space) vrx_regerror(errors::kOutOfSpace);
  const bool matched = outcome == Outcome::match;
  for (int i = 0; i < kGroups; ++i) {
    regex->start[i] = matched && match.start(i) != vstring::npos ? text + match.start(i) : nullptr;
    regex->end[i] = matched && match.end(i) != vstring::npos ? text + match.end(i) : nullptr;
  }
  return matched ? 1 : 0;
}
