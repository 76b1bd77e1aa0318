// Finds the matches of a plan in one text, first to last, in time proportional to plan x text.
//
// Each search tries backtracking first, on credit that grows with the text passed, and turns to
// the simulation when that is used up. What searches learn is kept for the next one: where the
// literal that every match contains stands next, and, once searches have looked ahead over the
// same text again and again, which states lead to a match at every place (two_pass.h).
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>

#include "bytes/bytes.h"
#include "search/regex/backtrack.h"
#include "search/regex/gate.h"
#include "search/regex/match.h"
#include "search/regex/plan.h"
#include "search/regex/simulate.h"
#include "search/regex/starts.h"
#include "search/regex/two_pass.h"

namespace vstring::regex {

// Automatic is what users get; the others hold a Matcher to one method, for tests that compare
// them.
enum class Method : std::uint8_t { automatic, backtracking, simulation, gated, two_pass };

// What the searches of a matcher have cost so far.
struct Work {
  std::size_t attempts;   // to backtrack from some place
  std::size_t credit;     // used up by them
  std::size_t gated;      // bytes that the gate has looked at,
  std::size_t sets;       // and how many sets of states it has made
  std::size_t simulated;  // bytes that the simulation has looked at
  bool two_pass;          // whether the backward pass has been made
};

class Matcher {
 public:
  Matcher(const Plan& plan, Bytes text, Method method = Method::automatic);

  // Finds the leftmost match in text[begin, end) taken as a text of its own. Calls go forward:
  // `begin` is never less than before. Fills `match`, in offsets into the whole text, if there is
  // one.
  Outcome find(std::size_t begin, Match& match);

  // Whether there is a match at all: match or no_match, unless memory fails.
  Outcome test();

  Work work() const;

 private:
  // What most searches do without.
  struct Linear {
    Linear(const Plan& plan, Bytes text, Starts& starts)
        : gate(plan, text), simulation(plan, text, starts), two_pass(plan, text) {}

    Gate gate;
    Simulation simulation;
    TwoPass two_pass;
    bool two_pass_ready = false;
  };

  Outcome find_single(std::size_t begin, Match& match);
  void look_from_end(std::size_t begin);
  Outcome find_linearly(std::size_t begin, Match& match);
  Outcome backtrack(std::size_t begin, Match& match);
  Linear& linear();
  Outcome simulate(std::size_t begin, std::size_t from, Match& match);
  void earn_up_to(std::size_t at);

  const Plan& plan_;
  const Bytes text_;
  Method method_;
  bool only_tests_ = false;  // a yes will do
  std::int64_t credit_;
  std::size_t earned_up_to_ = 0;
  std::size_t first_start_ = 0;  // no match starts before
  bool looked_from_end_ = false;
  std::size_t attempts_ = 0;
  std::size_t spent_ = 0;  // credit
  Starts starts_;
  Backtracker backtracker_;
  std::optional<Linear> linear_;
};

}  // namespace vstring::regex
