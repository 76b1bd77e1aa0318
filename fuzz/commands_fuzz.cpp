// Any command with any arguments: the fuzzer's bytes choose both. A fault that the host notices, a
// changed argument or a crash is a finding.
#include "input.h"
#include "support/allocations.h"
#include "support/random_calls.h"

void vstring_test::try_input(Input& input) {
  limit_allocation(std::size_t{1} << 22);
  static Input* current = nullptr;
  current = &input;
  // One heap for all inputs: the library holds on to lists from one call to the next. Without the
  // one command that writes to standard output, always the same.
  static auto* const calls =
      new RandomCalls([](std::size_t n) { return current->below(n); }, {"vstring_wildTester"});
  while (!input.empty()) expect_same("", calls->next());
  velmor_collect(calls->heap());
}
