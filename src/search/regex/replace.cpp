#include "search/regex/replace.h"

#include "bytes/copy.h"

namespace vstring::regex {

bool Replacement::record_number(std::size_t number) {
  for (; number >= 128; number >>= 7) {
    if (!matches_.push_back(static_cast<Byte>(number | 128))) return false;
  }
  return matches_.push_back(static_cast<Byte>(number));
}

std::size_t Replacement::read_number(std::size_t& at) const {
  std::size_t number = 0;
  int shift = 0;
  for (; matches_[at] >= 128; ++at, shift += 7) {
    number |= std::size_t{matches_[at] & 127U} << shift;
  }
  return number | std::size_t{matches_[at++]} << shift;
}

bool Replacement::record(std::size_t place, const Match& match) {
  if (!record_number(match.start() - place) || !record_number(match.end() - match.start())) {
    return false;
  }
  for (int g = 1; g < kGroups; ++g) {
    if ((groups_ >> g & 1) == 0) continue;
    if (!match.has(g)) {
      if (!record_number(0)) return false;
    } else if (!record_number(match.start(g) - match.start() + 1) ||
               !record_number(match.end(g) - match.start(g))) {
      return false;
    }
  }
  return true;
}

Outcome Replacement::find(const Plan& plan, Bytes text, Bytes replacement, Method method) {
  text_ = text;
  if (!template_.read(replacement)) return Outcome::out_of_memory;
  groups_ = template_.groups() & ~1U;
  Matcher matcher(plan, text, method);
  Match match;
  std::size_t place = 0;
  std::size_t length = 0;
  do {
    const Outcome outcome = matcher.find(place, match);
    if (outcome == Outcome::out_of_space) return Outcome::out_of_space;
    if (outcome == Outcome::no_match) break;
    if (match.start() == match.end()) return Outcome::empty_match;
    const Result<std::size_t> expansion = template_.expanded_length(text, match);
    if (!expansion.ok() || !record(place, match)) return Outcome::out_of_memory;
    if (__builtin_add_overflow(length, match.start() - place, &length) ||
        __builtin_add_overflow(length, *expansion, &length)) {
      return Outcome::out_of_memory;
    }
    place = match.end();
  } while (place < text.size());
  if (__builtin_add_overflow(length, text.size() - place, &length_)) return Outcome::out_of_memory;
  return length_ == 0 ? Outcome::empty_match : Outcome::no_match;
}

void Replacement::write(MutableBytes out) const {
  Match match;
  match.clear();
  std::size_t place = 0;
  for (std::size_t at = 0; at < matches_.size();) {
    const std::size_t start = place + read_number(at);
    out = copy_part(out, text_, place, start - place);
    match.slot[0] = start;
    match.slot[1] = place = start + read_number(at);
    for (int g = 1; g < kGroups; ++g) {
      if ((groups_ >> g & 1) == 0) continue;
      match.slot[2 * g] = match.slot[2 * g + 1] = npos;
      const std::size_t distance = read_number(at);
      if (distance == 0) continue;
      match.slot[2 * g] = start + distance - 1;
      match.slot[2 * g + 1] = match.slot[2 * g] + read_number(at);
    }
    out = template_.expand(text_, match, out);
  }
  copy_into(out, text_.subspan(place));
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
