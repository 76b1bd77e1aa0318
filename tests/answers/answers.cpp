// Prints a fingerprint of the answers to many random calls, the same calls whoever compiles this:
// other compilers, optimisations, locales and zones must not change it.
// Usage: vstring_answers CALLS [plain]     plain: without vector instructions
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

#include "bytes/cpu.h"
#include "support/allocations.h"
#include "support/fingerprint.h"
#include "support/random_calls.h"

int main(int argc, char** argv) {
  if (argc < 2 || std::setlocale(LC_ALL, "") == nullptr) return 2;
  vstring::plain_kernels_only = argc > 2 && std::strcmp(argv[2], "plain") == 0;
  vstring_test::limit_allocation(std::size_t{1} << 21);
  std::mt19937 engine(20260117);
  // Without those whose answers are the clock's, the zone's or the generator's.
  vstring_test::RandomCalls calls([&](std::size_t n) { return engine() % n; },
                                  {"vstring_fmttime", "vstring_parsetime", "vstring_random",
                                   "vstring_randomise", "vstring_wildTester"});
  std::uint64_t all = 0;
  for (long left = std::atol(argv[1]); left > 0; --left) {
    if (!calls.next().empty()) return 1;
    all = all * 31 + vstring_test::fingerprint(calls.answer());
    if (left % 256 == 0) velmor_collect(calls.heap());
  }
  std::printf("%016llx\n", static_cast<unsigned long long>(all));
  return 0;
}
