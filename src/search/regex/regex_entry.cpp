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
#include "search/regex/template.h"

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

[[noreturn]] void raise_out_of_space(const Args& args) {
  vrx_regerror(regex::errors::kOutOfSpace);
  raise_recorded(args, kCannotExecute);
}

const Plan& compiled(const Args& args, Bytes pattern, Bytes text) {
  const Plan* const plan = regex::plan_of(pattern, text.size());
  if (plan == nullptr) raise_recorded(args, kCannotCompile);
  return *plan;
}

Outcome find_first(const Plan& plan, Bytes text, Match* match) {
  regex::Matcher matcher(plan, text);
  return match == nullptr ? matcher.test() : matcher.find(0, *match);
}

// Whether the pattern matches; the groups are in `match` then, if that is not null.
bool matches(const Args& args, Bytes pattern, Bytes text, Match* match) {
  const Outcome outcome = find_first(compiled(args, pattern, text), text, match);
  if (outcome == Outcome::out_of_space) raise_out_of_space(args);
  return outcome == Outcome::match;
}

// A host string of its own, built beside the scratch buffer.
HostObject group_string(const Args& args, Bytes group) {
  char frame[8192];
  HeldArray<char> block;
  char* copy = frame;
  if (group.size() >= sizeof frame) {
    if (!block.resize(group.size() + 1)) args.raise(Status::out_of_memory);
    copy = block.data();
  }
  if (!group.empty()) std::memcpy(copy, group.data(), group.size());
  copy[group.size()] = '\0';
  const HostObject string = args.host()->HostNewString(copy);
  block.free();
  return string;
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
    host->HostAssign(args.object(i), group_string(args, match.group(text, group)));
  }
  return new_boolean(args, matched);
}

constexpr Signature kRegsub = {3};

HostObject vstring_regsub(const HostTable* host, HostObject argseq) {
  vstringInit();
  const Args args(host, argseq, kRegsub);
  const Bytes pattern = args.text(1);
  const Bytes text = args.text(2);
  const Bytes replacement = args.text(3);
  Match match;
  if (!matches(args, pattern, text, &match)) return host->HostToBoolean(-1);
  regex::Template parts;
  if (!parts.read(replacement)) {
    parts.free();
    args.raise(Status::out_of_memory);
  }
  const Result<std::size_t> length = parts.expanded_length(text, match);
  // Built in a block whatever its length: what the scratch buffer holds stays.
  HeldArray<Byte> block;
  if (!length.ok() || *length == SIZE_MAX || !block.resize(*length + 1)) {
    parts.free();
    args.raise(Status::out_of_memory);
  }
  parts.expand(text, match, {block.data(), *length});
  parts.free();
  block[*length] = '\0';
  const HostObject string = host->HostNewString(chars(block.data()));
  block.free();
  return string;
}

constexpr Signature kRegsubs = {2};

HostObject vstring_regsubs(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kRegsubs);
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
  // Built in a block, since what the scratch buffer holds stays when there is an error.
  HeldArray<Byte> changed;
  const Outcome outcome = regex::replace_all(plan, text, text_of(right_side(rule)), changed);
  if (outcome != Outcome::no_match) changed.free();
  if (outcome == Outcome::out_of_space) raise_out_of_space(args);
  if (outcome == Outcome::out_of_memory) args.raise(Status::out_of_memory);
  if (outcome == Outcome::empty_match) args.raise("cannot replace an empty match");
  // A long one is copied by the host alone, a short one passes through the scratch buffer.
  const Bytes result = changed.empty() ? text : changed.view();
  const HostObject string =
      result.size() < kScratchLimit ? new_string(args, result) : host->HostNewString(chars(result));
  changed.free();
  return string;
}

constexpr Signature kRegsplit = {2};

HostObject vstring_regsplit(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kRegsplit);
  const Bytes pattern = args.text(1);
  const Bytes text = args.text(2);
  const Plan& plan = compiled(args, pattern, text);
  if (text.empty()) return host->HostNull();
  HeldArray<regex::Cut> cuts;
  std::size_t rest = 0;
  const Outcome outcome = regex::find_cuts(plan, text, cuts, rest);
  if (outcome != Outcome::no_match) cuts.free();
  if (outcome == Outcome::out_of_space) raise_out_of_space(args);
  if (outcome == Outcome::out_of_memory) args.raise(Status::out_of_memory);
  if (outcome == Outcome::empty_match) args.raise("cannot split");
  if (cuts.empty()) return args.object(2);
  const std::size_t n = cuts.size() + (rest < text.size() ? 1 : 0);
  const HostObject pieces = new_sequence(args, n, [&](std::size_t i) {
    // What is left after the last match ends with the text, terminator included.
    if (i == cuts.size()) return host->HostNewString(chars(text.subspan(rest)));
    const regex::Cut cut = cuts[i];
    const std::size_t length = cut.end - cut.start;
    // A piece too long for the scratch buffer gives the text that was last built there: scripts
    // were written against that.
    if (length >= kScratchLimit) return host->HostNewString(smbuf);
    if (length > 0) std::memcpy(smbuf, text.data() + cut.start, length);
    smbuf[length] = '\0';
    return host->HostNewString(smbuf);
  });
  cuts.free();
  return pieces;
}
