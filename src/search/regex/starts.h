// Where in a text a match may start, as far as the plan's hints tell.
//
// When every match contains a literal, and all it can have ahead of that literal are bytes of one
// set, no match starts before the run of such bytes that leads up to the literal's next
// occurrence: so the search goes from literal to literal and looks back from there.
#pragma once
#include <cstddef>
#include <optional>

#include "bytes/budget.h"
#include "bytes/bytes.h"
#include "bytes/scan_stream.h"
#include "search/exact/exact.h"
#include "search/regex/plan.h"

namespace vstring::regex {

class Starts {
  static constexpr std::size_t kFreeBudget = 1024;  // bytes of scanning

 public:
  Starts(const Plan& plan, Bytes text) : plan_(plan), text_(text), first_(plan.hints.first, text) {}

  // Whether all that every match contains stands at `begin` or later, as far as it is worth asking:
  // each thing is asked for once.
  bool may_match(std::size_t begin) { return has_asked_ || ask(begin); }

  // The first place from `at` on, the end of the text included, where a match may start; npos
  // when there is none. From one call to the next, `at` never decreases.
  std::size_t next(std::size_t at);

  ScanStream& first() { return first_; }

 private:
  bool ask(std::size_t begin);
  std::size_t by_first_bytes(std::size_t at);
  std::size_t by_window(std::size_t at);
  std::size_t find_required(std::size_t at);
  void look_up_required(std::size_t at);

  const Plan& plan_;
  Bytes text_;
  bool has_asked_ = false;
  bool has_required_ = false;   // whether required_at_ is known
  std::size_t window_end_ = 0;  // from the place asked for last to here all bytes are of the window
  std::size_t prefix_at_ = 0;   // the prefix's first occurrence at the place asked for last
  std::size_t required_at_ = 0;  // the same for what every match contains, and
  std::size_t lead_at_ = 0;      // where the run of bytes begins that may come ahead of it
  Budget budget_{kFreeBudget};   // for looking for it, which saves scanning
  ScanStream first_;             // of the bytes that a match begins with
  std::optional<search::Finder> prefix_;
  std::optional<search::Finder> required_;
};

}  // namespace vstring::regex
