#include "search/regex/replace.h"

#include "search/regex/template.h"

namespace vstring::regex {

bool expand(Bytes text, const Match& match, Bytes replacement, GrowingText& result) {
  Template parts;
  return parts.read(replacement) && parts.expand(text, match, result);
}

Outcome replace_all(const Plan& plan, Bytes text, Bytes replacement, GrowingText& result,
                    Method method) {
  Template parts;
  if (!parts.read(replacement)) return Outcome::out_of_memory;
  Matcher matcher(plan, text, method);
  Match match;
  std::size_t place = 0;
  do {
    const Outcome outcome = matcher.find(place, match);
    if (outcome == Outcome::out_of_space) return outcome;
    if (outcome == Outcome::no_match) break;
    if (match.start() == match.end()) return Outcome::empty_match;
    // Most results are about as long as the text.
    if ((place == 0 && !result.reserve_more(text.size() + text.size() / 8)) ||
        !result.append_part(text, place, match.start() - place) ||
        !parts.expand(text, match, result)) {
      return Outcome::out_of_memory;
    }
    place = match.end();
  } while (place < text.size());
  if (place == 0) return text.empty() ? Outcome::empty_match : Outcome::no_match;
  if (!result.append(text.subspan(place))) return Outcome::out_of_memory;
  return result.size() == 0 ? Outcome::empty_match : Outcome::no_match;
}

Outcome find_cuts(const Plan& plan, Bytes text, HeldArray<Cut>& cuts, std::size_t& rest,
                  Method method) {
  Matcher matcher(plan, text, method);
  Match match;
  rest = 0;
  for (;;) {
    const Outcome outcome = matcher.find(rest, match);
    if (outcome == Outcome::out_of_space) return Outcome::out_of_space;
    if (outcome == Outcome::no_match) return Outcome::no_match;
    if (match.start() == match.end()) return Outcome::empty_match;
    if (!cuts.push_back({rest, match.start()})) return Outcome::out_of_memory;
    rest = match.end();
  }
}

}  // namespace vstring::regex
