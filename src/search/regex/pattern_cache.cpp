#include "search/regex/pattern_cache.h"

#include <cstdlib>
#include <cstring>

#include "host/vstring.h"
#include "search/regex/error.h"

namespace vstring::regex {
namespace {

// Outlives every call, hence plain malloc. The plan refers to the expression, and both leave with
// the pattern: a session may go through millions of patterns.
struct Entry {
  char* pattern;
  std::size_t length;
  VstringRegex* regex;
  Plan* plan;

  Bytes text() const { return {reinterpret_cast<const Byte*>(pattern), length}; }
};

Entry kept;

void forget() {
  std::free(kept.plan);
  std::free(kept.regex);
  std::free(kept.pattern);
  kept = {};
}

char* copy_of(Bytes text) {
  auto* const copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (copy == nullptr) return nullptr;
  if (!text.empty()) std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return copy;
}

}  // namespace

const Plan* plan_of(Bytes pattern) {
  if (kept.pattern != nullptr && equal(kept.text(), pattern)) return kept.plan;
  forget();
  kept.pattern = copy_of(pattern);
  kept.length = pattern.size();
  if (kept.pattern != nullptr) {
    kept.regex = vrx_regcomp(kept.pattern);
    if (kept.regex != nullptr) kept.plan = make_plan(*kept.regex);
    if (kept.plan != nullptr) return kept.plan;
  }
  if (kept.pattern == nullptr || kept.regex != nullptr) vrx_regerror(errors::kOutOfSpace);
  forget();
  return nullptr;
}

}  // namespace vstring::regex
