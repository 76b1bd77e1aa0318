// Entry points: regmatch, regsub, regsubs, regsplit.
#include <cstdio>
#include <cstring>

#include "host/args.h"
#include "host/result.h"
#include "runtime/scratch.h"
#include "search/regex/error.h"
#include "search/regex/matcher.h"
#include "search/regex/pattern_cache.h"
#include "search/regex/replace.h"

using namespace vstring;
using regex::Match;
using regex::Outcome;
using regex::Plan;

namespace {

constexpr const char* kCannotCompile = "cannot compile regular expression: %s";
constexpr const char* kCannotExecute = "cannot execute compiled regular expression: %s";

[[noreturn]] void raise_recorded(const Args& args, const char* format) {
  const char* const recorded = regex::recorded_error();
  char message[512];
  std::snprintf(message, sizeof message, format,
                recorded[0] == '\0' ? "undiagnosed error" : recorded);
  args.raise(message);
}

const Plan& compiled(const Args& args, Bytes pattern, Bytes text) {
  const Plan* const plan = regex::plan_of(chars(pattern), text.size());
  if (plan == nullptr) raise_recorded(args, kCannotCompile);
  return *plan;
}

// Raises unless the text was gone through or a match found; in these words when one was empty.
void require(const Args& args, Outcome outcome, const char* empty_match) {
  if (outcome == Outcome::out_of_space) {
    vrx_regerror(regex::errors::kOutOfSpace);
    raise_recorded(args, kCannotExecute);
  }
  if (outcome == Outcome::out_of_memory) args.raise(Status::out_of_memory);
  if (outcome == Outcome::empty_match) args.raise(empty_match);
}

// Whether the pattern matches; the groups are in `match` then, if that is not null.
bool matches(const Args& args, Bytes pattern, Bytes text, Match* match) {
  const Plan& plan = compiled(args, pattern, text);
  const Outcome outcome = match == nullptr ? regex::Matcher(plan, text).test()
                                           : regex::Matcher(plan, text).find(0, *match);
  require(args, outcome, nullptr);
  return outcome == Outcome::match;
}

// What is in the place of a piece when the scan has built none in the scratch buffer yet: the text
// that was there before.
constexpr regex::Cut kEarlierText = {npos, npos};

bool fits_scratch(regex::Cut cut) { return cut.end - cut.start < kScratchLimit; }

// Leaves the scratch buffer as pieces that are built there one after another do, and makes those
// that are too long for it show what was built there last: scripts were written against that.
void pass_through_scratch(Bytes text, std::span<regex::Cut> cuts) {
  regex::Cut built = kEarlierText;
  for (regex::Cut& cut : cuts) {
    if (fits_scratch(cut)) {
      built = cut;
    } else {
      cut = built;
    }
  }
  if (built.start == npos || !scratch_is_free()) return;
  const std::size_t length = built.end - built.start;
  copy_into(scratch, text.subspan(built.start, length));
  scratch[length] = '\0';
}

}  // namespace

constexpr Signature kRegmatch = {
    2,
    {{"first argument (pattern) must be a string"}, {"second argument (text) must be a string"}}};

HostObject vstring_regmatch(const HostTable* host, HostObject argseq) {
  vstringInit();
  const Args args(host, argseq, kRegmatch);
  const Bytes pattern = args.text(1);
  const Bytes text = args.text(2);
  constexpr int kFirstName = 3;
  constexpr int kLastName = kFirstName + regex::kGroups - 1;
  if (args.has(kLastName + 1)) {
    host->HostUserInfo(3, "Lexiva", "WARNING: arguments after the twelfth will be ignored");
  }
  Match match;
  const bool matched = matches(args, pattern, text, args.has(kFirstName) ? &match : nullptr);
  for (int i = kFirstName; matched && i <= kLastName && args.has(i); ++i) {
    const int group = i - kFirstName;
    if (!match.has(group)) continue;
    if (!is_name(args.object(i))) args.raise("optional arguments must be symbols");
    host->HostAssign(args.object(i), new_string_aside(args, match.group(text, group)));
  }
  return new_boolean(args, matched);
}

HostObject vstring_regsub(const HostTable* host, HostObject argseq) {
  vstringInit();
  const Args args(host, argseq, kThree);
  const Bytes pattern = args.text(1);
  const Bytes text = args.text(2);
  const Bytes replacement = args.text(3);
  Match match;
  if (!matches(args, pattern, text, &match)) return host->HostToBoolean(-1);
  // Built aside whatever its length: what the scratch buffer holds stays.
  Byte frame[SMALL_BUFFER_BASE_SIZE];
  GrowingText expansion(frame, sizeof frame);
  if (!regex::expand(text, match, replacement, expansion)) {
    expansion.free();
    args.raise(Status::out_of_memory);
  }
  return new_string(args, expansion);
}

HostObject vstring_regsubs(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const HostObject rule = args.object(1);
  if (!is_equation(rule)) {
    args.raise("first argument must be an equation of the form PATTERN = REPLACEMENT");
  }
  if (!is_text(left_side(rule))) {
    args.raise("left hand side of first argument must be a string");
  }
  if (!is_text(right_side(rule))) {
    args.raise("right hand side of first argument must be a string");
  }
  const Bytes text = args.text(2);
  const Plan& plan = compiled(args, text_of(left_side(rule)), text);
  // Built aside, since what the scratch buffer holds stays when there is an error.
  Byte frame[SMALL_BUFFER_BASE_SIZE];
  GrowingText changed(frame, sizeof frame);
  const Outcome outcome = regex::replace_all(plan, text, text_of(right_side(rule)), changed);
  if (outcome != Outcome::no_match) changed.free();
  require(args, outcome, "cannot replace an empty match");
  // A long one is copied by the host alone, a short one passes through the scratch buffer.
  const Bytes result = changed.size() == 0 ? text : changed.view();
  const HostObject string =
      result.size() < kScratchLimit ? new_string(args, result) : host->HostNewString(chars(result));
  changed.free();
  return string;
}

HostObject vstring_regsplit(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes pattern = args.text(1);
  const Bytes text = args.text(2);
  const Plan& plan = compiled(args, pattern, text);
  if (text.empty()) return host->HostNull();
  HeldArray<regex::Cut> cuts;
  std::size_t rest = 0;
  const Outcome outcome = regex::find_cuts(plan, text, cuts, rest);
  HeldArray<Byte> earlier;
  const bool has_earlier =
      cuts.empty() || fits_scratch(cuts[0]) || earlier.append(bytes_of(chars(scratch)));
  pass_through_scratch(text, {cuts.data(), cuts.size()});
  if (outcome != Outcome::no_match || !has_earlier) {
    cuts.free();
    earlier.free();
  }
  const bool has_outcome = has_earlier || outcome == Outcome::out_of_space;
  require(args, has_outcome ? outcome : Outcome::out_of_memory, "cannot split");
  if (cuts.empty()) return args.object(2);
  const std::size_t n = cuts.size() + (rest < text.size() ? 1 : 0);
  const HostObject pieces = new_sequence(args, n, [&](std::size_t i) {
    // What is left after the last match ends with the text, terminator included.
    if (i == cuts.size()) return host->HostNewString(chars(text.subspan(rest)));
    const regex::Cut cut = cuts[i];
    return new_string_aside(args, cut.start == npos ? Bytes(earlier.view())
                                                    : text.subspan(cut.start, cut.end - cut.start));
  });
  earlier.free();
  cuts.free();
  return pieces;
}
