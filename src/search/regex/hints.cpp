#include "search/regex/prepare.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "bytes/commonness.h"
#include "runtime/memory.h"

namespace vstring::regex {
namespace {

using States = Buffer<StateNumber>;

// States to look at for what comes next, before it counts as unknown.
constexpr std::size_t kMaxLook = 64;

// The prefix filter is not worth its while where it stops more often than at this share of places,
// and to look for single bytes instead, which is faster, not where they stand so much more often.
constexpr double kMaxHits = 1.0 / 12;
constexpr double kFewHits = 1.0 / 256;

// Two bytes that stand together more seldom are looked for without the third.
constexpr double kRareHits = 1.0 / 2048;

// The places from which on so many bytes are of one set are not looked for in longer stretches.
constexpr int kMaxWindow = 32;

// What is required is not looked for where it stands so much more often than what a match begins
// with.
constexpr double kMuchMore = 16;

// A literal so short is looked for together with the byte behind it or ahead of it.
constexpr std::size_t kMaxSurrounded = PrefixFilter::kMaxLength - 1;

class Analysis {
 public:
  explicit Analysis(Plan& plan) : plan_(plan), hints_(plan.hints) {}

  // False when memory fails.
  bool run(bool all);

 private:
  // What a match can come to before it takes its next byte.
  struct Ahead {
    bool can_end = false;      // to its end, or to that of the text
    bool reports = false;      // to a state that reports
    bool is_at_begin = false;  // to some of it at the start of the text only
  };

  const State& state(StateNumber s) const { return plan_.states[s]; }
  void push(States& states, StateNumber s) { has_memory_ = states.push_back(s) && has_memory_; }

  template <typename Enter>
  void walk(StateNumber from, Enter enter);
  Ahead look_ahead(std::span<const StateNumber> from, std::size_t limit = SIZE_MAX);
  ByteSet bytes_of(const States& takers) const;
  void unite_taken(ByteSet& bytes, StateNumber s) const;

  bool find_path();
  bool advance();
  void find_prefixes();
  bool find_prefix(double most_hits);
  void find_window();
  void find_required();
  double share_of(const State& state) const;
  void consider(StateNumber s);
  void find_surroundings();
  void find_choices();
  bool needs_end();

  Plan& plan_;
  Hints& hints_;
  bool has_memory_ = true;
  std::uint32_t round_ = 1;
  States seen_;    // by state: the last round that entered it
  States parent_;  // by state: where that round came from
  States stack_;
  States path_;   // one way from the start to the end of a match
  States place_;  // by state: its place on that path, from 1; 0: none
  States first_;  // the states that take the first byte of a match
  States now_;
  States later_;       // those that take what look_ahead saw
  double starts_ = 1;  // the share of places where a match may start
};

// Enters the states that can be reached from one and that this round has not seen, depth first;
// goes on from those for which `enter` is true.
template <typename Enter>
void Analysis::walk(StateNumber from, Enter enter) {
  stack_.clear();
  push(stack_, from);
  while (!stack_.empty()) {
    const StateNumber s = stack_.back();
    stack_.pop_back();
    if (seen_[s] == round_) continue;
    seen_[s] = round_;
    if (!enter(s)) continue;
    for (const StateNumber next : successors(state(s))) {
      if (seen_[next] == round_) continue;
      parent_[next] = s;
      push(stack_, next);
    }
  }
}

// Looks from some states to those that take the next byte, which are later_ then. After `limit`
// steps anything is thought to be ahead.
Analysis::Ahead Analysis::look_ahead(std::span<const StateNumber> from, std::size_t limit) {
  Ahead ahead;
  ++round_;
  later_.clear();
  for (const StateNumber root : from) {
    walk(root, [&](StateNumber s) {
      const Op op = state(s).op;
      if (consumes(op)) push(later_, s);
      if (limit == 0) ahead = {true, true, true};
      ahead.can_end |= op == Op::accept || op == Op::eol;
      ahead.reports |= op == Op::report;
      ahead.is_at_begin |= op == Op::bol;
      return limit-- > 0 && passes(op, true, false);
    });
  }
  return ahead;
}

bool Analysis::run(bool all) {
  if (!seen_.resize_zeroed(plan_.state_count) || !parent_.resize(plan_.state_count)) return false;
  const Ahead ahead = look_ahead({&plan_.start, 1});
  for (const StateNumber s : later_) push(first_, s);
  hints_.has_first = !ahead.can_end && !ahead.reports;
  if (hints_.has_first) hints_.first = ByteScan(bytes_of(first_));
  if (!all || !find_path()) return has_memory_;
  find_choices();
  plan_.ends_with_text = !plan_.has_bol && needs_end();
  find_required();
  if (plan_.anchored) return has_memory_;
  if (hints_.has_first) find_prefixes();
  if (hints_.required_count > 0) find_surroundings();
  return has_memory_;
}

// The bytes that some states take first.
ByteSet Analysis::bytes_of(const States& takers) const {
  ByteSet first;
  for (const StateNumber s : takers) first.unite(plan_.first_bytes(state(s)));
  return first;
}

// Adds all bytes that a state takes.
void Analysis::unite_taken(ByteSet& bytes, StateNumber s) const {
  const State& state = this->state(s);
  if (state.op == Op::literal) {
    bytes.unite(ByteSet(plan_.literal(state)));
  } else if (consumes(state.op)) {
    bytes.unite(plan_.first_bytes(state));
  }
}

// Finds the path. False when nothing can match, or when a state reports something: to be reported
// it must be reached, so no way to it may be cut short.
bool Analysis::find_path() {
  ++round_;
  StateNumber end = kFailState;
  bool reports = false;
  walk(plan_.start, [&](StateNumber s) {
    if (state(s).op == Op::accept) end = s;
    reports |= state(s).op == Op::report;
    return true;
  });
  if (end == kFailState || reports || !has_memory_) return false;
  if (!place_.resize_zeroed(plan_.state_count)) return has_memory_ = false;
  push(path_, end);
  for (StateNumber s = end; s != plan_.start; push(path_, s)) s = parent_[s];
  std::reverse(path_.begin(), path_.end());
  for (StateNumber i = 0; i < path_.size(); ++i) place_[path_[i]] = i + 1;
  return has_memory_;
}

// What leaves no choice open where only one way can lead on. A run takes all when no byte that it
// takes can follow it: to leave it early would only lead to a byte that it takes, and so to a
// failure. The ways of a branch are told apart by what comes next there.
void Analysis::find_choices() {
  for (StateNumber s = 0; s < plan_.state_count; ++s) {
    State& state = plan_.states[s];
    if (state.op == Op::star || state.op == Op::plus) {
      const Ahead ahead = look_ahead({&state.next, 1}, kMaxLook);
      state.takes_all = !ahead.is_at_begin && !plan_.first_bytes(state).meets(bytes_of(later_));
    } else if (state.op == Op::branch) {
      LookAhead& look = plan_.look_ahead[state.at];
      for (int i = 0; i < 2; ++i) {
        look.can_end[i] = look_ahead({i == 0 ? &state.next : &state.other, 1}, kMaxLook).can_end;
        look.bytes[i] = bytes_of(later_);
      }
      state.looks = !look.can_end[0] || !look.can_end[1];
    }
  }
}

// Whether every way to the end of a match leads over a $. Finds what matches take until then.
bool Analysis::needs_end() {
  bool accepts = false;
  ++round_;
  walk(plan_.start, [&](StateNumber s) {
    accepts |= state(s).op == Op::accept;
    unite_taken(hints_.taken, s);
    return state(s).op != Op::eol;
  });
  return !accepts;
}

// Goes on from states that take a byte, now_, to those that take the next one. Whether a match can
// end between the two.
bool Analysis::advance() {
  for (StateNumber& s : now_) s = plan_.after(s);
  const bool can_end = look_ahead(now_.view()).can_end;
  now_.clear();
  for (const StateNumber s : later_) push(now_, s);
  return can_end;
}

// What a match begins with, from the states that take its first byte. They share the numbers of the
// filter; what follows those of one number is looked at together.
void Analysis::find_prefixes() {
  std::size_t length = PrefixFilter::kUsualLength;
  ByteSet all[PrefixFilter::kUsualLength];
  for (std::size_t prefix = 0; prefix < PrefixFilter::kPrefixes; ++prefix) {
    now_.clear();
    for (std::size_t i = prefix; i < first_.size(); i += PrefixFilter::kPrefixes) {
      push(now_, first_[i]);
    }
    for (std::size_t i = 0; i < length && !now_.empty(); ++i) {
      const ByteSet set = bytes_of(now_);
      hints_.prefixes.add(prefix, i, set);
      all[i].unite(set);
      if (advance()) length = i + 1;
    }
  }
  double hits = 1;
  for (std::size_t i = 0; i < length; ++i) {
    hits *= share(all[i]);
    if (i == 1 && hits <= kRareHits) length = 2;
  }
  const bool is_worth_it = length > 1 && hits <= kMaxHits;
  starts_ = is_worth_it ? hits : share(all[0]);
  hints_.prefix_length =
      find_prefix(is_worth_it ? hits + kFewHits : starts_) || !is_worth_it ? 0 : length;
  if (starts_ > kMaxHits) find_window();
}

// The bytes that a match begins with, as far as they are known one by one. False when they stand at
// a larger share of all places than `most_hits`.
bool Analysis::find_prefix(double most_hits) {
  const State& state = this->state(first_[0]);
  if (first_.size() == 1 && state.op == Op::literal && state.other > 1) {
    hints_.prefix = search::Needle(plan_.literal(state), SIZE_MAX);
    starts_ = share_of(state);
    return true;
  }
  Byte known[Probes::kMost];
  std::size_t places[Probes::kMost];
  std::size_t count = 0;
  double hits = 1;
  now_.clear();
  for (const StateNumber s : first_) push(now_, s);
  for (std::size_t i = 0; i < Probes::kMost; ++i) {
    const ByteSet set = bytes_of(now_);
    if (set.count() == 1) {
      set.for_each([&](Byte c) { known[count] = c; });
      places[count++] = i;
      hits *= share(set);
    }
    constexpr std::size_t kMaxUnknown = 2;
    if (i >= count + kMaxUnknown || advance() || now_.empty()) break;
  }
  if (count == 0 || hits > most_hits) return false;
  starts_ = hits;
  hints_.prefix = search::Needle(Bytes(known, count), {places, count});
  return true;
}

// The longest stretch at the start of a match whose bytes are of one set that is seldom so long in
// a row.
void Analysis::find_window() {
  now_.clear();
  for (const StateNumber s : first_) push(now_, s);
  ByteSet window;
  for (int length = 1; length <= kMaxWindow; ++length) {
    window.unite(bytes_of(now_));
    if (window.count() == 256) return;
    if (std::pow(share(window), length) <= kMaxHits) {
      hints_.window = window;
      hints_.window_length = static_cast<std::size_t>(length);
    }
    if (advance() || now_.empty()) return;
  }
}

// Finds the states that every match passes through, those of the path that no other way leads
// around: follows, from one state of the path to the next, all ways that leave it to where they
// come back.
void Analysis::find_required() {
  ++round_;
  std::size_t furthest = 0;
  for (std::size_t i = 0; i < path_.size(); ++i) {
    if (furthest <= i) consider(path_[i]);
    walk(path_[i], [&](StateNumber s) {
      if (s == path_[i]) return true;
      if (state(s).op == Op::accept) furthest = path_.size() - 1;
      if (place_[s] == 0) return true;
      furthest = std::max<std::size_t>(furthest, place_[s] - 1);
      seen_[s] = 0;  // its turn comes
      return false;
    });
  }
}

// At what share of a text's places that stands which a state takes, roughly.
double Analysis::share_of(const State& state) const {
  if (state.op != Op::literal) return share(plan_.first_bytes(state));
  constexpr double kNowhere = 1e-30;
  double product = 1;
  for (std::size_t i = 0; i < state.other && product > kNowhere; ++i) {
    product *= share(ByteSet({plan_.program + state.at + i, 1}));
  }
  return product;
}

// Takes a state that every match passes through as a required one if it tells more than one of
// those before, or if there is room. What a match begins with is known already.
void Analysis::consider(StateNumber s) {
  const State& state = this->state(s);
  if (!consumes(state.op) || state.op == Op::star) return;
  if (first_.size() == 1 && first_[0] == s) return;
  if (state.op != Op::literal && state.test == Test::any) return;
  int& count = hints_.required_count;
  int place = count;
  while (place > 0 && share_of(state) < share_of(this->state(hints_.required[place - 1]))) --place;
  if (place == kMaxRequired) return;
  if (count < kMaxRequired) ++count;
  for (int i = count - 1; i > place; --i) hints_.required[i] = hints_.required[i - 1];
  hints_.required[place] = s;
}

// The bytes that a match can take before it first comes to what is required. A short literal is
// looked for with the byte behind it or, where a match can end there, with the one ahead of it; a
// single byte, which is found faster alone, only where it is common and another always follows.
void Analysis::find_surroundings() {
  const StateNumber required = hints_.required[0];
  ++round_;
  walk(plan_.start, [&](StateNumber s) {
    if (s == required) return false;
    unite_taken(hints_.lead, s);
    return true;
  });
  const State& there = state(required);
  const double hits = share_of(there);
  hints_.has_lead = hints_.lead.count() < 256 && hits < kMuchMore * starts_;
  const auto leads_there = [&](StateNumber from) {
    const bool is_far = look_ahead({&from, 1}, kMaxLook).reports;
    return is_far || std::find(later_.begin(), later_.end(), required) != later_.end();
  };
  hints_.min_lead = leads_there(plan_.start) ? 0 : 1;
  const bool is_rare_byte = there.other == 1 && hits < kFewHits;
  if (there.op != Op::literal || there.other > kMaxSurrounded || is_rare_byte) return;
  const bool can_end = look_ahead({&there.next, 1}).can_end;
  const ByteSet follow = bytes_of(later_);
  hints_.around_at = can_end && there.other > 1 ? hints_.min_lead : 0;
  for (StateNumber s = 0; s < plan_.state_count && hints_.around_at > 0; ++s) {
    if (!consumes(state(s).op) || !leads_there(plan_.after(s))) continue;
    hints_.around.add(0, 0, plan_.first_bytes(state(s)));
  }
  std::size_t length = hints_.around_at;
  for (const Byte& c : plan_.literal(there)) hints_.around.add(0, length++, ByteSet({&c, 1}));
  if (!can_end) hints_.around.add(0, length++, follow);
  if (length > there.other) hints_.around_length = length;
}

}  // namespace

bool find_hints(Plan& plan, bool all) { return Analysis(plan).run(all); }

}  // namespace vstring::regex
