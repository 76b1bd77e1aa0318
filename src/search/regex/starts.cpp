#include "search/regex/starts.h"

#include <algorithm>

namespace vstring::regex {
namespace {

// Looking for what is required costs as much as this many bytes of scanning. Where it stands too
// thick to save that much it is not looked for any longer.
constexpr std::size_t kSearchCost = 16;

// What a place of it that turns out to be none costs, where both could be told at once.
constexpr std::size_t kStopCost = 256;

std::size_t find(const ByteScan& set, Bytes text, std::size_t at) {
  const std::size_t found = set.find(text, at);
  return found == text.size() ? npos : found;
}

}  // namespace

bool Starts::may_match(std::size_t begin) {
  const Hints& hints = plan_.hints;
  if (has_asked_ || hints.required_count == 0) return true;
  has_asked_ = true;
  // One that starts with the text is soon tried.
  if (plan_.anchored && hints.has_first &&
      (begin == text_.size() || !hints.first.has(text_[begin]))) {
    return false;
  }
  const Bytes rest = text_.subspan(begin);
  const auto stands = [&](const Required& required) {
    return (required.set != nullptr ? find(*required.set, rest, 0)
                                    : search::find(required.literal, rest)) != npos;
  };
  // The first one is looked for all along if it tells where a match may start.
  return std::all_of(hints.required + (hints.has_lead ? 1 : 0),
                     hints.required + hints.required_count, stands);
}

std::size_t Starts::by_first_bytes(std::size_t at) {
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
    const std::size_t end = at + hints.window_length;
    const std::size_t known = std::max(at, window_end_);
    std::size_t from = std::max(end, known);
    while (from > known && hints.window.has(text_[from - 1])) --from;
    window_end_ = std::max(end, known);
    if (from == known) return at;
    at = from;
  }
  return npos;
}

// The first place from `at` on where what is required may stand. Its own bytes are looked for
// first, and where they often stand in vain, its end together with what follows.
std::size_t Starts::find_required(std::size_t at) {
  const Hints& hints = plan_.hints;
  const Bytes literal = hints.required[0].literal;
  if (stops_.is_used_up()) {
    const Bytes end = literal.last(std::min(literal.size(), PrefixFilter::kMaxLength - 1));
    if (!tail_) {
      tail_.emplace();
      for (std::size_t i = 0; i < end.size(); ++i) tail_->add(0, i, ByteSet(end.subspan(i, 1)));
      tail_->add(0, end.size(), hints.follow);
    }
    const std::size_t ahead = literal.size() - end.size();
    const std::size_t found = tail_->find(end.size() + 1, text_, at + ahead);
    return found == npos ? npos : found - ahead;
  }
  if (literal.size() == 1 && !required_) {  // a finder is made for more
    const std::size_t found = search::find(literal, text_.subspan(at));
    return found == npos ? npos : at + found;
  }
  if (!required_) required_.emplace(literal, text_);
  return required_->next_from(at);
}

// Whether what is required stands at `at`, between bytes that a match can have there.
bool Starts::fits(std::size_t at) const {
  const Hints& hints = plan_.hints;
  if (hints.has_before && !hints.before.has(text_[at - 1])) return false;
  const Bytes literal = hints.required[0].literal;
  const std::size_t end = at + literal.size();
  if (stops_.is_used_up() && !equal(text_.subspan(at, literal.size()), literal)) return false;
  return !hints.has_follow || (end < text_.size() && hints.follow.has(text_[end]));
}

// Finds the first place of what is required in a match that starts at `at` or later, and where its
// lead begins.
void Starts::look_up_required(std::size_t at) {
  const Hints& hints = plan_.hints;
  std::size_t from = at + (hints.has_before ? 1 : 0);
  if (from > text_.size()) {
    required_at_ = npos;
  } else if (hints.required[0].set != nullptr) {
    required_at_ = find(*hints.required[0].set, text_, from);
  } else {
    for (;; from = required_at_ + 1) {
      required_at_ = find_required(from);
      if (required_at_ == npos || fits(required_at_)) break;
      stops_.earn(required_at_ - from);
      if (hints.has_follow) stops_.spend(kStopCost);
    }
  }
  has_required_ = true;
  if (required_at_ == npos) return;
  lead_at_ = required_at_;
  while (lead_at_ > at && hints.lead.has(text_[lead_at_ - 1])) --lead_at_;
  budget_.earn(lead_at_ - at);
  budget_.spend(kSearchCost);
}

std::size_t Starts::next(std::size_t at) {
  const bool uses_required = plan_.hints.has_lead && !budget_.is_used_up();
  const std::size_t ahead = plan_.hints.has_before ? 1 : 0;  // of what is required, at least
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
