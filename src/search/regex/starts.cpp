#include "search/regex/starts.h"

#include <algorithm>

namespace vstring::regex {
namespace {

// Looking for what is required costs as much as this many bytes of scanning. Where it stands too
// thick to save that much it is not looked for any longer.
constexpr std::ptrdiff_t kSearchCost = 16;

}  // namespace

Starts::Starts(const Plan& plan, Bytes text)
    : plan_(plan),
      text_(text),
      must_(plan.hints.must, text),
      prefix_(plan.hints.prefix, text),
      required_(plan.hints.required, text) {
  if (!plan.hints.must.empty()) must_at_ = must_.next();
  if (!plan.hints.prefix.empty()) prefix_at_ = prefix_.next();
  if (plan.hints.has_required()) look_up_required(0);
}

bool Starts::has_must(std::size_t begin) {
  if (plan_.hints.must.empty()) return true;
  if (must_at_ < begin) must_at_ = must_.next_from(begin);
  return must_at_ != npos;
}

std::size_t Starts::by_first_bytes(std::size_t at) {
  const Hints& hints = plan_.hints;
  if (!hints.prefix.empty()) {
    if (prefix_at_ < at) prefix_at_ = prefix_.next_from(at);
    return prefix_at_;
  }
  if (hints.prefix_length > 0) return hints.prefixes.find(hints.prefix_length, text_, at);
  if (!hints.has_first) return at;
  const std::size_t found = hints.first.find(text_, at);
  return found == text_.size() ? npos : found;
}

// Finds the first place from `at` on of what is required, and where its lead begins.
void Starts::look_up_required(std::size_t at) {
  const Hints& hints = plan_.hints;
  if (hints.has_required_set) {
    required_at_ = hints.required_set.find(text_, at);
    if (required_at_ == text_.size()) required_at_ = npos;
  } else {
    required_at_ = required_.next_from(at);
  }
  lead_at_ = at;
  if (required_at_ == npos || !hints.has_lead) return;
  lead_at_ = required_at_;
  while (lead_at_ > at && hints.lead.has(text_[lead_at_ - 1])) --lead_at_;
  credit_ += static_cast<std::ptrdiff_t>(lead_at_ - at) - kSearchCost;
}

std::size_t Starts::next(std::size_t at) {
  const bool uses_required = plan_.hints.has_required() && credit_ >= 0;
  for (;;) {
    if (uses_required) {
      if (required_at_ < at) look_up_required(at);
      if (required_at_ == npos) return npos;
      at = std::max(at, lead_at_);
    }
    const std::size_t candidate = by_first_bytes(at);
    if (!uses_required || candidate == npos || candidate <= required_at_) return candidate;
    at = candidate;
  }
}

}  // namespace vstring::regex
