// Every command, called at random: no crash, no fault, no changed argument, no growing memory.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>

#include "support/allocations.h"
#include "support/check.h"
#include "support/figures.h"
#include "support/random_calls.h"

namespace vstring_test {
namespace {

constexpr std::size_t kDefaultCalls = 300000;
constexpr std::size_t kMemoryLimit = std::size_t{1} << 21;

// What is wrong with so many calls, the first of it. Some commands write to the process's own
// streams.
std::string run(std::size_t calls, std::size_t rounding = 1, unsigned char filler = 0) {
  static std::mt19937 engine(20260117);
  RandomCalls random([&](std::size_t n) { return engine() % n; });
  velmor_set_text_layout(random.heap(), rounding, filler);
  std::string problem;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  for (std::size_t i = 0; i < calls && problem.empty(); ++i) {
    problem = random.next();
    if (i % 256 == 0) velmor_collect(random.heap());
  }
  testing::internal::GetCapturedStdout();
  testing::internal::GetCapturedStderr();
  if (!problem.empty() || calls < kDefaultCalls) return problem;
  problem = random.unanswered();
  return problem.empty() ? "" : "never got past their checks: " + problem;
}

double kib_in_use() {
  const struct mallinfo2 memory = mallinfo2();
  return static_cast<double>(memory.uordblks + memory.hblkhd) / 1024;
}

// The host keeps names as long as its heap, so that each part has a heap of its own.
TEST(RandomCalls, AreSound) {
  const char* const wanted = std::getenv("VSTRING_RANDOM_CALLS");
  const std::size_t calls = wanted != nullptr ? std::stoul(wanted) : kDefaultCalls;
  vstringRelease(velmor_table(session().heap()));  // nothing is remembered of another heap
  const std::size_t limit = limit_allocation(kMemoryLimit);
  EXPECT_EQ("", run(2000));
  const std::size_t before = live_blocks();
  const double kib = kib_in_use();
  for (std::size_t i = 0; i < calls; i += kDefaultCalls)
    EXPECT_EQ("", run(std::min(calls - i, kDefaultCalls)));
  EXPECT_EQ(before, live_blocks());
  figure("grown_kib") = kib_in_use() - kib;
  figure("random_calls") += static_cast<double>(calls);
  figure("leaked_blocks") += static_cast<double>(live_blocks() - before);
  limit_allocation(limit);
}

// Objects of sizes rounded up, and memory behind a terminator that is not cleared: what is printed
// is the same.
TEST(RandomCalls, AreSoundWhateverStandsBehindATerminator) {
  const std::size_t limit = limit_allocation(kMemoryLimit);
  EXPECT_EQ("", run(20000, 8));
  EXPECT_EQ("", run(20000, 1, 'x'));
  EXPECT_EQ("", run(20000, 1, 0xff));
  limit_allocation(limit);
}

}  // namespace
}  // namespace vstring_test
