#include "search/regex/pattern_cache.h"

#include <cstdlib>
#include <cstring>

#include "host/vstring.h"
#include "search/regex/error.h"
#include "search/regex/prepare.h"

namespace vstring::regex {
namespace {

// Outlives every call, hence plain malloc. The plan refers to the expression, and both leave with
// the pattern: a session may go through millions of patterns.
struct Entry {
  char* pattern;
  VstringRegex* regex;
  Plan* plan;
  std::size_t searched;  // bytes so far, until there are all hints
};

Entry kept;

char* copy_of(const char* text) {
  const std::size_t bytes = std::strlen(text) + 1;
  auto* const copy = static_cast<char*>(std::malloc(bytes));
  return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, bytes));
}

// Finds all hints once the texts are long enough, together, to be worth it.
bool prepare(std::size_t length) {
  if (kept.searched >= kWorthHints) return true;
  kept.searched += length;
  return kept.searched < kWorthHints || add_hints(*kept.plan, *kept.regex);
}

}  // namespace

void forget_pattern() {
  std::free(kept.plan);
  std::free(kept.regex);
  std::free(kept.pattern);
  kept = {};
}

const Plan* plan_of(const char* pattern, std::size_t length) {
  const bool is_kept = kept.pattern != nullptr && std::strcmp(kept.pattern, pattern) == 0;
  if (is_kept && prepare(length)) return kept.plan;
  forget_pattern();
  kept.pattern = copy_of(pattern);
  if (kept.pattern != nullptr) kept.regex = vrx_regcomp(kept.pattern);
  if (kept.regex != nullptr) {
    kept.plan = make_plan(*kept.regex, false);
    if (kept.plan != nullptr && prepare(length)) return kept.plan;
  }
  if (kept.pattern == nullptr || kept.regex != nullptr) vrx_regerror(errors::kOutOfSpace);
  forget_pattern();
  return nullptr;
}

}  // namespace vstring::regex
