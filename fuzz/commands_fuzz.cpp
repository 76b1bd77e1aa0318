// Any command with any arguments: the fuzzer's bytes choose both. A fault that the host notices, a
// changed argument or a crash is a finding.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

#include "support/allocations.h"
#include "support/random_calls.h"

namespace {

std::span<const std::uint8_t> input;

std::size_t take_byte() {
  if (input.empty()) return 0;
  const std::size_t byte = input[0];
  input = input.subspan(1);
  return byte;
}

std::size_t choose(std::size_t n) {
  std::size_t value = take_byte();
  if (n > 256) value = 256 * value + take_byte();
  return value % n;
}

}  // namespace

// What the fuzzing engine calls; no header of its own declares it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vstring_test::limit_allocation(std::size_t{1} << 22);
  // One heap for all inputs: the library holds on to lists from one call to the next. Without the
  // one command that writes to standard output, always the same.
  static auto* const calls = new vstring_test::RandomCalls(choose, {"vstring_wildTester"});
  input = {data, size};
  while (!input.empty()) {
    const std::string problem = calls->next();
    if (problem.empty()) continue;
    std::fprintf(stderr, "%s\n", problem.c_str());
    std::abort();
  }
  velmor_collect(calls->heap());
  return 0;
}
