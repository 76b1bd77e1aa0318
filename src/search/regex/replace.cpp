#include "search/regex/replace.h"

#include <algorithm>

#include "bytes/copy.h"
#include "search/regex/template.h"

namespace vstring::regex {
namespace {

// A text that grows, with room for a whole block behind what is written.
class Output {
 public:
  explicit Output(HeldArray<Byte>& block) : block_(block) {}

  // Makes room for `before` and then `more` bytes; false when memory fails.
  bool make_room(std::size_t before, std::size_t more) {
    std::size_t needed = length_ + before + kCopyBlock;
    if (__builtin_add_overflow(needed, more, &needed)) return false;
    return needed <= block_.size() || block_.resize(std::max(needed, 2 * block_.size()));
  }
  MutableBytes rest() const { return {block_.data() + length_, block_.size() - length_}; }
  // What `rest` has become once it was written to.
  void advance(MutableBytes rest) { length_ = block_.size() - rest.size(); }
  std::size_t length() const { return length_; }
  void end() {
    block_[length_] = '\0';
    (void)block_.resize(length_);
  }

 private:
  HeldArray<Byte>& block_;
  std::size_t length_ = 0;
};

Outcome replace_all(const Plan& plan, Bytes text, const Template& parts, HeldArray<Byte>& result,
                    Method method) {
  Matcher matcher(plan, text, method);
  Output out(result);
  Match match;
  std::size_t place = 0;
  do {
    const Outcome outcome = matcher.find(place, match);
    if (outcome == Outcome::out_of_space) return outcome;
    if (outcome == Outcome::no_match) break;
    if (match.start() == match.end()) return Outcome::empty_match;
    const Result<std::size_t> expansion = parts.expanded_length(text, match);
    // At first for the text as it is, then by doubling.
    const std::size_t before = place == 0 ? text.size() : match.start() - place;
    if (!expansion.ok() || !out.make_room(before, *expansion)) return Outcome::out_of_memory;
    const MutableBytes rest = copy_part(out.rest(), text, place, match.start() - place);
    out.advance(parts.expand(text, match, rest));
    place = match.end();
  } while (place < text.size());
  if (place == 0) return text.empty() ? Outcome::empty_match : Outcome::no_match;
  if (!out.make_room(text.size() - place, 0)) return Outcome::out_of_memory;
  out.advance(copy_into(out.rest(), text.subspan(place)));
  out.end();
  return out.length() == 0 ? Outcome::empty_match : Outcome::no_match;
}

}  // namespace

Outcome replace_all(const Plan& plan, Bytes text, Bytes replacement, HeldArray<Byte>& result,
                    Method method) {
  Template parts;
  const Outcome outcome = parts.read(replacement) ? replace_all(plan, text, parts, result, method)
                                                  : Outcome::out_of_memory;
  parts.free();
  return outcome;
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
