#include "search/regex/starts.h"

#include <algorithm>

namespace vstring::regex {
namespace {

// Looking for what is required costs as much as this many bytes of scanning. Where it stands too
// thick to save that much it is not looked for any longer.
constexpr std::size_t kSearchCost = 16;

// In a text no longer than this, what is required is looked for without the bytes around it.
constexpr std::size_t kShort = 512;

// The first place, `at` or later, of what a state takes: a byte of a set, or a literal.
std::size_t find(const Plan& plan, StateNumber s, Bytes text, std::size_t at) {
  const State& state = plan.states[s];
  const Bytes rest = text.subspan(at);
  const std::size_t found = state.test == Test::set ? plan.sets[state.other].find(rest, 0)
                                                    : search::find(plan.literal(state), rest);
  return found < rest.size() ? at + found : npos;
}

}  // namespace

bool Starts::ask(std::size_t begin) {
  const Hints& hints = plan_.hints;
  has_asked_ = true;
  if (hints.required_count == 0) return true;
  // One that starts with the text is soon tried.
  if (plan_.anchored && hints.has_first &&
      (begin == text_.size() || !hints.first.has(text_[begin]))) {
    return false;
  }
  // The first one is looked for all along if it tells where a match may start.
  for (int i = hints.has_lead ? 1 : 0; i < hints.required_count; ++i) {
    if (find(plan_, hints.required[i], text_, begin) == npos) return false;
  }
  return true;
}

inline std::size_t Starts::by_first_bytes(std::size_t at) {
  const Hints& hints = plan_.hints;
  if (hints.prefix.size() > 0) {
    const bool is_new = !prefix_;
    if (is_new) prefix_.emplace(hints.prefix, text_);
    if (is_new || prefix_at_ < at) prefix_at_ = prefix_->next_from(at);
    return prefix_at_;
  }
  if (hints.prefix_length > 0) return hints.prefixes.find(hints.prefix_length, text_, at);
  if (hints.window_length > 0) return by_window(at);
  if (!hints.has_first) return at;
  const std::size_t found = first_.find(at);
  return found == text_.size() ? npos : found;
}

// The first place from `at` on where a whole window stands. Each is looked at from its end, where
// the first byte outside tells how far to go on.
std::size_t Starts::by_window(std::size_t at) {
  const Hints& hints = plan_.hints;
  while (text_.size() - at >= hints.window_length) {
    const std::size_t known = std::max(at, window_end_);
    window_end_ = std::max(at + hints.window_length, known);
    std::size_t from = window_end_;
    while (from > known && hints.window.has(text_[from - 1])) --from;
    if (from == known) return at;
    at = from;
  }
  return npos;
}

// The first place where what is required may stand in a match that starts at `at` or later.
std::size_t Starts::find_required(std::size_t at) {
  const Hints& hints = plan_.hints;
  const State& required = plan_.states[hints.required[0]];
  const std::size_t from = at + hints.min_lead;
  if (from > text_.size()) return npos;
  if (hints.around_length > 0 && text_.size() > kShort) {
    const std::size_t before = hints.around_at;
    const std::size_t found = hints.around.find(hints.around_length, text_, from - before);
    return found == npos ? npos : found + before;
  }
  const bool is_word = required.op == Op::literal && required.other > 1;
  if (!is_word) return find(plan_, hints.required[0], text_, from);
  if (!required_) required_.emplace(plan_.literal(required), text_);
  return required_->next_from(from);
}

// Finds the first place of what is required in a match that starts at `at` or later, and where its
// lead begins.
void Starts::look_up_required(std::size_t at) {
  required_at_ = find_required(at);
  has_required_ = true;
  if (required_at_ == npos) return;
  lead_at_ = required_at_;
  while (lead_at_ > at && plan_.hints.lead.has(text_[lead_at_ - 1])) --lead_at_;
  budget_.earn(lead_at_ - at);
  budget_.spend(kSearchCost);
}

std::size_t Starts::next(std::size_t at) {
  const bool uses_required = plan_.hints.has_lead && !budget_.is_used_up();
  const std::size_t ahead = plan_.hints.min_lead;
  for (;;) {
    if (uses_required) {
      if (!has_required_ || required_at_ < at + ahead) look_up_required(at);
      if (required_at_ == npos) return npos;
      at = std::max(at, lead_at_);
    }
    const std::size_t candidate = by_first_bytes(at);
    if (!uses_required || candidate == npos || candidate + ahead <= required_at_) return candidate;
    at = candidate;
  }
}

}  // namespace vstring::regex
