// Any command with any arguments: the fuzzer's bytes choose both. A fault that the host notices, a
// changed argument or a crash is a finding.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "support/allocations.h"
#include "support/fingerprint.h"
#include "support/random_arguments.h"

namespace {

void require(bool holds, const std::string& command, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s: %s\n", command.c_str(), what);
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::vector<vstring_test::Command> commands = [] {
    std::vector<vstring_test::Command> all = vstring_test::all_commands();
    // The one command that writes to standard output, always the same.
    std::erase_if(all, [](const auto& command) { return command.name == "vstring_wildTester"; });
    return all;
  }();
  vstring_test::limit_allocation(std::size_t{1} << 22);
  // One heap for all inputs: the library holds on to lists from one call to the next.
  static VelmorHeap* const heap = vstring_test::quiet_heap();

  std::size_t at = 0;
  const auto choose = [&](std::size_t n) {
    std::size_t value = at < size ? data[at++] : 0;
    if (n > 256 && at < size) value = 256 * value + data[at++];
    return value % n;
  };
  vstring_test::RandomArguments arguments(heap, choose);
  while (at < size) {
    const vstring_test::Command& command = commands[choose(commands.size())];
    const HostObject argseq = arguments.sequence();
    const std::uint64_t before = vstring_test::fingerprint(argseq);
    HostObject result = 0;
    velmor_call(heap, command.entry, argseq, &result);
    require(before == vstring_test::fingerprint(argseq), command.name, "changed its arguments");
    require(*velmor_faults(heap) == '\0', command.name, velmor_faults(heap));
  }
  velmor_collect(heap);
  return 0;
}
