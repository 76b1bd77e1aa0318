// Replacing every match of a pattern, and cutting a text at every match.
//
// Each search runs on what is left after the match before it as if that were a whole text, so that
// ^ matches at the start of every remainder.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "search/regex/match.h"
#include "search/regex/matcher.h"
#include "search/regex/plan.h"
#include "search/regex/template.h"

namespace vstring::regex {

// What replacing does, found before any result is written.
class Replacement {
 public:
  // Finds all matches and the result's length. Requires plan and text to outlive it.
  Outcome find(const Plan& plan, Bytes text, Bytes replacement, Method method = Method::automatic);

  std::size_t length() const { return length_; }
  bool changes_text() const { return !matches_.empty(); }
  void write(MutableBytes out) const;  // length() bytes

  void free() {
    matches_.free();
    template_.free();
  }

 private:
  bool record(std::size_t place, const Match& match);
  bool record_number(std::size_t number);
  std::size_t read_number(std::size_t& at) const;

  Bytes text_;
  Template template_;
  std::size_t length_ = 0;
  unsigned groups_ = 0;  // bit n: the template inserts group n > 0
  // Per match: bytes before it, its length, and for each group inserted 0, or 1 + its distance
  // from the match's start, then its length. In base 128, so a typical match takes two bytes.
  HeldArray<Byte> matches_;
};

// A piece of the text between matches.
struct Cut {
  std::size_t start;
  std::size_t end;
};

// Finds the pieces that end at a match, and `rest`, where the last match ends.
Outcome find_cuts(const Plan& plan, Bytes text, HeldArray<Cut>& cuts, std::size_t& rest,
                  Method method = Method::automatic);

}  // namespace vstring::regex
