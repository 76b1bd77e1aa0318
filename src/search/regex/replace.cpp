#include "search/regex/replace.h"

#include "bytes/copy.h"
#include "search/regex/template.h"

namespace vstring::regex {
namespace {

// Appends the text from `place` up to a match and then the expansion, with room for a text of
// `room` bytes and for a block behind what is copied. False when memory fails.
[[gnu::always_inline]] inline bool append(const Template& parts, Bytes text, std::size_t place,
                                          const Match& match, std::size_t room,
                                          HeldArray<Byte>& result) {
  const Result<std::size_t> expansion = parts.expanded_length(text, match);
  const std::size_t before = match.start() - place;
  std::size_t more = (room != 0 ? room : before) + kCopyBlock;
  if (!expansion.ok() || __builtin_add_overflow(more, *expansion, &more)) return false;
  if (!result.reserve_more(more)) return false;
  const MutableBytes rest = copy_part({result.end(), more}, text, place, before);
  const Byte* const end = parts.expand(text, match, rest).data();
  return result.resize(static_cast<std::size_t>(end - result.begin()));
}

}  // namespace

bool expand(Bytes text, const Match& match, Bytes replacement, HeldArray<Byte>& result) {
  Template parts;
  if (!parts.read(replacement) || !append(parts, text, match.start(), match, 0, result)) {
    return false;
  }
  *result.end() = '\0';
  return true;
}

Outcome replace_all(const Plan& plan, Bytes text, Bytes replacement, HeldArray<Byte>& result,
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
    const std::size_t room = place == 0 ? text.size() : 0;  // at first; more by doubling
    if (!append(parts, text, place, match, room, result)) return Outcome::out_of_memory;
    place = match.end();
  } while (place < text.size());
  if (place == 0) return text.empty() ? Outcome::empty_match : Outcome::no_match;
  if (!result.reserve_more(text.size() - place + 1)) return Outcome::out_of_memory;
  (void)result.append(text.subspan(place));
  *result.end() = '\0';
  return result.empty() ? Outcome::empty_match : Outcome::no_match;
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
