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
  std::size_t length;
  VstringRegex* regex;
  Plan* plan;
  std::size_t searched;  // bytes so far
  bool has_hints;        // all of them

  Bytes text() const { return {reinterpret_cast<const Byte*>(pattern), length}; }
};

Entry kept;

char* copy_of(Bytes text) {
  auto* const copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (copy == nullptr) return nullptr;
  if (!text.empty()) std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return copy;
}

// Finds all hints once the texts are long enough, together, to be worth it.
bool prepare(std::size_t length) {
  kept.searched += length;
  if (kept.has_hints || kept.searched < kWorthHints) return true;
  return kept.has_hints = add_hints(*kept.plan, *kept.regex);
}

}  // namespace

void forget_pattern() {
  std::free(kept.plan);
  std::free(kept.regex);
  std::free(kept.pattern);
  kept = {};
}

const Plan* plan_of(Bytes pattern, std::size_t length) {
  if (kept.pattern != nullptr && equal(kept.text(), pattern) && prepare(length)) return kept.plan;
  forget_pattern();
  kept.pattern = copy_of(pattern);
  kept.length = pattern.size();
  if (kept.pattern != nullptr) {
    kept.regex = vrx_regcomp(kept.pattern);
    if (kept.regex != nullptr) kept.plan = make_plan(*kept.regex, false);
    if (kept.plan != nullptr && prepare(length)) return kept.plan;
  }
  if (kept.pattern == nullptr || kept.regex != nullptr) vrx_regerror(errors::kOutOfSpace);
  forget_pattern();
  return nullptr;
}

}  // namespace vstring::regex
