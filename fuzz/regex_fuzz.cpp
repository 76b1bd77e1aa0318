// Compiles and matches against the reference matcher: the error or its absence, the match and every
// group by each method, replacing and splitting. The input is a pattern, a NUL, a text, a NUL and a
// template; a first byte of 255 asks for damage instead.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "search/regex/finder.h"
#include "search/regex/replace.h"
#include "search/regex_reference.h"

namespace {

using namespace vstring::regex;
using vstring::Bytes;
namespace reference = vstring_test::reference;

constexpr std::size_t kLongestPattern = 64;
constexpr std::size_t kLongestText = 64;
constexpr std::size_t kMaxSteps = 20000;  // of the reference, which is exponential
constexpr Method kMethods[] = {Method::automatic, Method::backtracking, Method::simulation,
                               Method::two_pass};

void require(bool condition) {
  if (!condition) std::abort();
}

Bytes bytes_of(std::string_view text) {
  return {reinterpret_cast<const vstring::Byte*>(text.data()), text.size()};
}

void check_match(const Plan& plan, std::string_view text, bool expected,
                 const reference::Slots& slots, Method method) {
  Match match;
  match.clear();
  require(Finder(plan, bytes_of(text), method).find(0, match) ==
          (expected ? Found::yes : Found::no));
  for (int i = 0; expected && i < kSlots; ++i)
    require(static_cast<std::ptrdiff_t>(match.slot[i]) == slots[static_cast<std::size_t>(i)]);
}

void check_replaced(const Plan& plan, const reference::Regex& regex, std::string_view text,
                    std::string_view replacement, Method method) {
  const auto expected = reference::replace_all(regex, text, replacement);
  Replacement changes;
  const Scan scan = changes.find(plan, bytes_of(text), bytes_of(replacement), method);
  require(expected.has_value() == (scan == Scan::ok));
  if (expected) {
    std::string result(changes.length(), '\0');
    changes.write({reinterpret_cast<vstring::Byte*>(result.data()), result.size()});
    require(result == *expected);
  }
  changes.free();
}

void check_split(const Plan& plan, const reference::Regex& regex, std::string_view text,
                 Method method) {
  const auto expected = reference::split(regex, text);
  vstring::Buffer<Cut> cuts;
  std::size_t rest = 0;
  const Scan scan = find_cuts(plan, bytes_of(text), cuts, rest, method);
  require(expected.has_value() == (scan == Scan::ok));
  if (!expected) return;
  require(expected->size() == cuts.size() + (rest < text.size() ? 1 : 0));
  for (std::size_t i = 0; i < cuts.size(); ++i)
    require((*expected)[i] == text.substr(cuts[i].start, cuts[i].end - cuts[i].start));
}

// Whether the reference takes few steps on every remainder of the text.
bool is_cheap(const reference::Regex& regex, std::string_view text) {
  reference::Slots slots;
  for (; !text.empty(); text.remove_prefix(1)) {
    if (!regex.search(text, slots, kMaxSteps / 10)) return false;
  }
  return true;
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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  const bool is_damaged = !rest.empty() && rest[0] == '\377';
  if (is_damaged) rest.remove_prefix(1);
  const std::string pattern(take(rest, kLongestPattern));
  const std::string text(take(rest, kLongestText));

  const reference::Regex expected(pattern);
  VstringRegex* const regex = vrx_regcomp(pattern.c_str());
  if (!expected.error().empty()) {
    require(regex == nullptr && expected.error() == vrx_regerror(nullptr));
    return 0;
  }
  require(regex != nullptr);
  if (is_damaged) {
    run_damaged(regex, text, rest);
    std::free(regex);
    return 0;
  }
  Plan* const plan = make_plan(*regex);
  require(plan != nullptr);
  reference::Slots slots;
  const auto matched = expected.search(text, slots, kMaxSteps);
  if (matched) {
    for (const Method method : kMethods) check_match(*plan, text, *matched, slots, method);
    if (is_cheap(expected, text)) {
      const std::string_view replacement = take(rest, kLongestText);
      for (const Method method : kMethods) {
        check_replaced(*plan, expected, text, replacement, method);
        check_split(*plan, expected, text, method);
      }
    }
  }
  std::free(plan);
  std::free(regex);
  return 0;
}
