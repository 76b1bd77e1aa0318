#include "search/structure/brackets.h"

namespace vstring::search {

bool BracketPairs::set(Bytes pairs) {
  if (pairs.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < pairs.size(); i += 2) {
    const Byte opening = pairs[i];
    const Byte closing = pairs[i + 1];
    if (has(opening) || has(closing) || opening == closing) return false;
    partner_[opening] = closing;
    partner_[closing] = opening;
    opening_.add(opening);
  }
  return true;
}

Status find_brackets(Bytes text, const BracketPairs& pairs, HeldArray<Bracket>& brackets) {
  Buffer<std::size_t> open;  // the places in `brackets` of those that wait
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Byte c = text[i];
    if (!pairs.has(c)) continue;
    Bracket found = {i, npos};
    if (pairs.is_opening(c)) {
      if (!open.push_back(brackets.size())) return Status::out_of_memory;
    } else if (!open.empty() && text[brackets[open.back()].opening] == pairs.partner(c)) {
      brackets[open.back()].closing = i;
      open.pop_back();
      continue;
    } else {
      found = {npos, i};
    }
    if (!brackets.push_back(found)) return Status::out_of_memory;
  }
  return Status::ok;
}

Result<bool> is_balanced(Bytes text, const BracketPairs& pairs) {
  Buffer<Byte> open;
  for (const Byte c : text) {
    if (!pairs.has(c)) continue;
    if (pairs.is_opening(c)) {
      if (!open.push_back(c)) return Status::out_of_memory;
    } else {
      if (open.empty() || open.back() != pairs.partner(c)) return false;
      open.pop_back();
    }
  }
  return open.empty();
}

}  // namespace vstring::search
