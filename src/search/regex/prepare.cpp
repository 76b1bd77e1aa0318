#include "search/regex/prepare.h"

#include <cstdlib>

namespace vstring::regex {
namespace {

// The first byte that the record gives holds, also when the program has been changed since.
void believe_first_byte(Hints& hints, const Byte& first) {
  const ByteSet set(Bytes(&first, 1));
  if (first == 0 || (hints.has_first && hints.first.set() == set)) return;
  hints.prefix = search::Needle(Bytes(&first, 1), 1);
  hints.has_first = true;
  hints.first = ByteScan(set);
}

// Passes over saves, noting their captures.
StateNumber pass_saves(const Plan& plan, StateNumber s, std::uint32_t& slots) {
  for (int i = 0; i < 2 * kGroups && plan.states[s].op == Op::save; ++i, s = plan.states[s].next) {
    slots |= 1U << plan.states[s].slot;
  }
  return s;
}

// Finds out what a match begins with, and whether that is all of it.
void find_single(Plan& plan) {
  const Hints& hints = plan.hints;
  plan.start_slots = 1;
  const StateNumber s = pass_saves(plan, plan.start, plan.start_slots);
  const State& state = plan.states[s];
  if (state.op == Op::star || state.op == Op::plus) plan.first_run = s;
  std::uint32_t end_slots = 0;
  const StateNumber last = pass_saves(plan, state.next, end_slots);
  if (plan.states[last].op != Op::accept || plan.anchored || hints.required_count > 0) return;
  const bool is_single = state.op == Op::literal && state.other > 1
                             ? equal(hints.prefix.pattern(), plan.literal(state))
                             : (state.op == Op::literal || state.op == Op::one ||
                                (state.op == Op::plus && state.takes_all)) &&
                                   hints.has_first && hints.first.set() == plan.first_bytes(state);
  if (!is_single) return;
  plan.single = s;
  plan.start_slots &= ~end_slots;
}

}  // namespace

Plan* make_plan(const VstringRegex& regex, bool all_hints) {
  Plan* const plan = decode(regex);
  if (plan == nullptr || add_hints(*plan, regex, all_hints)) return plan;
  std::free(plan);
  return nullptr;
}

bool add_hints(Plan& plan, const VstringRegex& regex, bool all) {
  plan.hints = {};
  if (!find_hints(plan, all)) return false;
  believe_first_byte(plan.hints, regex.first_byte);
  find_single(plan);
  return true;
}

}  // namespace vstring::regex
