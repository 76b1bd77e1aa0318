#include "search/regex/matcher.h"

#include <algorithm>

namespace vstring::regex {
namespace {

// Steps of backtracking: how many a text is given at first, for each byte and at most, and how
// many more are earned by each byte passed. A step costs some nanoseconds, so the most that can be
// lost before the simulation takes over is small beside its own time.
constexpr std::int64_t kFirstCredit = 256;
constexpr std::size_t kCreditPerByte = 32;
constexpr std::size_t kMaxCredit = std::size_t{1} << 18;

// Open choices: 1.5 MiB of stack.
constexpr std::size_t kMaxFrames = std::size_t{1} << 16;

// The simulations of all searches together read a text once and a little more, unless searches look
// ahead over and over.
constexpr std::size_t kFreeWork = 4096;

// A match that ends with the text starts behind the last byte that no match takes. How far it is
// looked for.
constexpr std::size_t kNear = 256;

// To go back with all states takes some thousand steps to prepare, and then one for each state and
// place: too much for short texts, and for more than a small part of long ones.
constexpr std::size_t kShort = 128;
constexpr std::size_t kFewPlaces = 16;
constexpr std::size_t kStepsPerByte = 4;

}  // namespace

Matcher::Matcher(const Plan& plan, Bytes text, Method method)
    : plan_(plan),
      text_(text),
      method_(method),
      credit_(method == Method::backtracking ? INT64_MAX : kFirstCredit),
      starts_(plan, text),
      backtracker_(plan, text, method == Method::backtracking ? SIZE_MAX : kMaxFrames) {
  earn_up_to(text.size());
  earned_up_to_ = 0;
}

// For the text that has been passed since credit was earned last.
void Matcher::earn_up_to(std::size_t at) {
  if (method_ == Method::backtracking) return;
  const auto earned = static_cast<std::int64_t>((at - earned_up_to_) * kCreditPerByte);
  credit_ = std::min(std::max<std::int64_t>(credit_, 0) + earned, std::int64_t{kMaxCredit});
  earned_up_to_ = at;
}

Matcher::Linear& Matcher::linear() {
  if (!linear_) linear_.emplace(plan_, text_, starts_);
  return *linear_;
}

Outcome Matcher::find(std::size_t begin, Match& match) {
  const bool is_automatic = method_ == Method::automatic;
  if (plan_.single != kFailState && is_automatic) return find_single(begin, match);
  if (!starts_.may_match(begin)) return Outcome::no_match;
  if ((is_automatic && !linear_) || method_ == Method::backtracking) return backtrack(begin, match);
  return find_linearly(begin, match);
}

// Where all matches end with the text, it is soon seen from there how far back they can start.
void Matcher::look_from_end(std::size_t begin) {
  looked_from_end_ = true;
  if (!plan_.ends_with_text || text_.size() - begin < kShort) return;
  std::size_t at = text_.size();
  const std::size_t far = at - std::min(at - begin, kNear);
  while (at > far && plan_.hints.taken.has(text_[at - 1])) --at;
  if (at > far) {
    first_start_ = at;
    return;
  }
  const std::size_t limit = kFewPlaces + text_.size() / (kStepsPerByte * plan_.state_count);
  std::size_t start = 0;
  if (linear().two_pass.find_from_end(begin, limit, start)) first_start_ = start;
}

Outcome Matcher::find_linearly(std::size_t begin, Match& match) {
  Linear& by = linear();
  const bool looks_ahead = by.simulation.work() > text_.size() + kFreeWork;
  if (!by.two_pass_ready &&
      (method_ == Method::two_pass || (method_ == Method::automatic && looks_ahead))) {
    if (!by.two_pass.prepare(begin)) return Outcome::out_of_space;
    by.two_pass_ready = !by.two_pass.has_circle();
    if (!by.two_pass_ready) method_ = Method::simulation;
  }
  if (by.two_pass_ready) return by.two_pass.run(begin, match) ? Outcome::match : Outcome::no_match;
  return method_ == Method::automatic ? backtrack(begin, match) : simulate(begin, begin, match);
}

Work Matcher::work() const {
  if (!linear_) return {attempts_, spent_, 0, 0, 0, false};
  const auto& [gate, simulation, two_pass, is_ready] = *linear_;
  return {attempts_, spent_, gate.work(), gate.sets(), simulation.work(), is_ready};
}

Outcome Matcher::test() {
  only_tests_ = true;
  Match match;
  return find(0, match);
}

Outcome Matcher::find_single(std::size_t begin, Match& match) {
  const State& state = plan_.states[plan_.single];
  const bool is_word = state.op == Op::literal && state.other > 1;
  const std::size_t start = is_word ? starts_.next(begin) : starts_.first().find(begin);
  if (start >= text_.size()) return Outcome::no_match;
  const std::size_t end = state.op == Op::plus ? starts_.first().find_other(start + 1)
                          : is_word            ? start + state.other
                                               : start + 1;
  for (std::size_t slot = 0; slot < plan_.slot_count; ++slot) {
    match.slot[slot] = (plan_.start_slots >> slot & 1) != 0 ? start : end;
  }
  return Outcome::match;
}

Outcome Matcher::backtrack(std::size_t begin, Match& match) {
  if (!looked_from_end_) look_from_end(begin);
  if (first_start_ == npos) return Outcome::no_match;
  std::size_t at = std::max(begin, first_start_);
  for (;;) {
    if (!plan_.anchored) at = starts_.next(at);
    if (at == npos) return Outcome::no_match;
    earn_up_to(at);
    const std::int64_t before = credit_;
    const Attempt attempt = backtracker_.run(begin, at, credit_, match);
    ++attempts_;
    spent_ += static_cast<std::size_t>(before - credit_);
    switch (attempt) {
      case Attempt::matched:
        return Outcome::match;
      case Attempt::gave_up:
        if (method_ == Method::backtracking) return Outcome::out_of_space;
        return simulate(begin, at, match);
      case Attempt::failed:
        break;
    }
    at = plan_.after_failure(text_, at);
    if (plan_.anchored || at > text_.size()) return Outcome::no_match;
  }
}

Outcome Matcher::simulate(std::size_t begin, std::size_t from, Match& match) {
  Linear& by = linear();
  if (method_ != Method::simulation) {
    const Gate::Answer answer = by.gate.run(begin, from);
    if (answer == Gate::Answer::no) return Outcome::no_match;
    if (answer == Gate::Answer::yes && only_tests_) return Outcome::match;
  }
  if (!by.simulation.prepare()) return Outcome::out_of_space;
  return by.simulation.run(begin, from, match) ? Outcome::match : Outcome::no_match;
}

}  // namespace vstring::regex
