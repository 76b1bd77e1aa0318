#include "search/regex/plan.h"

#include "search/regex/error.h"

namespace vstring::regex {

void report(const State& state) {
  // By fault.
  static constexpr const char* kReports[kFaults] = {nullptr, errors::kCorruptedPointers,
                                                    errors::kMemoryCorruption, errors::kFoulup};
  vrx_regerror(kReports[state.other]);
}

}  // namespace vstring::regex
