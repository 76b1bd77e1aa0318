// Every method of matching beside the reference matcher, for the exhaustive oracle and the fuzzer.
#pragma once
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "search/regex/matcher.h"
#include "search/regex/prepare.h"
#include "search/regex/replace.h"
#include "search/regex_reference.h"
#include "support/figures.h"

namespace vstring_test {

class Compiled {
 public:
  explicit Compiled(const std::string& pattern) : regex(vrx_regcomp(pattern.c_str())) {
    if (regex != nullptr) plan = vstring::regex::make_plan(*regex);
  }
  ~Compiled() {
    std::free(plan);
    std::free(regex);
  }
  Compiled(const Compiled&) = delete;
  Compiled& operator=(const Compiled&) = delete;

  VstringRegex* const regex;  // null when the pattern is refused
  vstring::regex::Plan* plan = nullptr;
};

inline vstring::Bytes bytes_of(std::string_view text) {
  return {reinterpret_cast<const vstring::Byte*>(text.data()), text.size()};
}

using vstring::regex::Method;

// The groups of the first match; all unset when there is none.
inline reference::Slots find_by(Method method, const Compiled& compiled, std::string_view text) {
  vstring::regex::Match match;
  reference::Slots slots;
  slots.fill(-1);
  vstring::regex::Matcher matcher(*compiled.plan, bytes_of(text), method);
  if (matcher.find(0, match) == vstring::regex::Outcome::match)
    std::copy_n(match.slot, vstring::regex::kSlots, slots.begin());
  return slots;
}

inline std::optional<std::string> replaced_by(Method method, const Compiled& compiled,
                                              std::string_view text, std::string_view replacement) {
  vstring::GrowingText result;
  const vstring::regex::Outcome outcome =
      replace_all(*compiled.plan, bytes_of(text), bytes_of(replacement), result, method);
  const std::string replaced(result.terminated(), result.size());
  result.free();
  if (outcome != vstring::regex::Outcome::no_match) return std::nullopt;
  return replaced.empty() ? std::string(text) : replaced;
}

inline std::optional<std::vector<std::string>> split_by(Method method, const Compiled& compiled,
                                                        std::string_view text) {
  vstring::Buffer<vstring::regex::Cut> cuts;
  std::size_t rest = 0;
  if (find_cuts(*compiled.plan, bytes_of(text), cuts, rest, method) !=
      vstring::regex::Outcome::no_match)
    return std::nullopt;
  std::vector<std::string> pieces;
  for (const auto& cut : cuts) pieces.emplace_back(text.substr(cut.start, cut.end - cut.start));
  if (rest < text.size()) pieces.emplace_back(text.substr(rest));
  return pieces;
}

// What a method does otherwise than the reference; empty when all agree. Passes over what takes the
// reference more than `steps` steps.
inline std::string difference(const Compiled& compiled, const reference::Regex& expected,
                              std::string_view text, std::string_view replacement,
                              std::size_t steps = SIZE_MAX) {
  reference::Slots slots;
  const auto matched = expected.search(text, slots, steps);
  if (!matched) return "";
  if (!*matched) slots.fill(-1);
  bool is_cheap = true;  // on every remainder of the text
  for (std::size_t i = 0; i < text.size() && is_cheap && steps != SIZE_MAX; ++i) {
    reference::Slots ignored;
    is_cheap = expected.search(text.substr(i), ignored, steps / 10).has_value();
  }
  const auto replaced = is_cheap ? reference::replace_all(expected, text, replacement) : "";
  const auto pieces = is_cheap ? reference::split(expected, text) : std::nullopt;
  for (const Method method : {Method::automatic, Method::backtracking, Method::simulation,
                              Method::gated, Method::two_pass}) {
    const std::string where =
        " by method " + std::to_string(static_cast<int>(method)) + " on " + std::string(text);
    static double& count = figure("compared_matches");
    count += is_cheap ? 3 : 1;
    if (find_by(method, compiled, text) != slots) return "match" + where;
    if (!is_cheap) continue;
    if (replaced_by(method, compiled, text, replacement) != replaced) return "replacement" + where;
    if (split_by(method, compiled, text) != pieces) return "split" + where;
  }
  return "";
}

}  // namespace vstring_test
