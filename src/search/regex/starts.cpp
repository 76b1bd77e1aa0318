#include "search/regex/starts.h"

#include <algorithm>

namespace vstring::regex {
namespace {

// Looking for what is required costs as much as this many bytes of scanning. Where it stands too
// thick to save that much it is not looked for any longer.
constexpr std::size_t kSearchCost = 16;

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
  if (!hints.has_first) return at;
  const std::size_t found = first_.find(at);
  return found == text_.size() ? npos : found;
}

// Finds the first place from `at` on of what is required, and where its lead begins.
void Starts::look_up_required(std::size_t at) {
  const Hints& hints = plan_.hints;
  const Required& required = hints.required[0];
  if (required.set != nullptr) {
    required_at_ = find(*required.set, text_, at);
  } else if (required.literal.size() == 1 && !hints.has_follow) {  // a finder is made for more
    const std::size_t found = search::find(required.literal, text_.subspan(at));
    required_at_ = found == npos ? npos : at + found;
  } else {
    if (!required_) required_.emplace(required.literal, text_);
    required_at_ = required_->next_from(at);
    const std::size_t size = required.literal.size();
    while (hints.has_follow && required_at_ != npos &&
           (required_at_ + size == text_.size() || !hints.follow.has(text_[required_at_ + size]))) {
      required_at_ = required_->next();
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
  for (;;) {
    if (uses_required) {
      if (!has_required_ || required_at_ < at) look_up_required(at);
      if (required_at_ == npos) return npos;
      at = std::max(at, lead_at_);
    }
    const std::size_t candidate = by_first_bytes(at);
    if (!uses_required || candidate == npos || candidate <= required_at_) return candidate;
    at = candidate;
  }
}

}  // namespace vstring::regex
