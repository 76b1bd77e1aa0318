// Every command, called at random: no crash, no fault, no changed argument, no growing memory.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "support/allocations.h"
#include "support/check.h"
#include "support/fingerprint.h"
#include "support/random_arguments.h"

namespace vstring_test {
namespace {

constexpr std::size_t kDefaultCalls = 100000;
constexpr std::size_t kMemoryLimit = std::size_t{1} << 21;
constexpr std::size_t kCacheBlocks = 16;  // compiled pattern, dictionaries' slots, generator ...

// These write to the process's own streams.
const std::set<std::string> kWriters = {"vstring_wildTest", "vstring_wildTester", "vstring_stem",
                                        "vstring_lancaster"};

class RandomCalls : public testing::Test {
 protected:
  void SetUp() override {
    forget_weights(session().heap());
    limit_before_ = limit_allocation(kMemoryLimit);
  }
  void TearDown() override {
    limit_allocation(limit_before_);
    forget_weights(heap_);
    velmor_heap_free(heap_);
  }

  // Refused weights are forgotten: no list may stay remembered that lives in another heap.
  static void forget_weights(VelmorHeap* heap) {
    const HostObject one = velmor_integer(heap, 1);
    const HostObject text = velmor_string(heap, "a");
    const HostObject arguments[] = {text, text, velmor_list(heap, 1, &one)};
    HostObject result = 0;
    velmor_call(heap, vstring_wslo, velmor_sequence(heap, 3, arguments), &result);
  }

  void run(std::size_t calls) {
    for (std::size_t i = 0; i < calls && !HasFailure(); ++i) {
      call(commands_[below(commands_.size())]);
      if (i % 256 == 0) velmor_collect(heap_);
    }
  }

  // Blocks that stay once the dictionaries are gone.
  std::size_t live() {
    for (std::int64_t id = 0; id < 512; ++id) {
      const HostObject argument = velmor_integer(heap_, id);
      HostObject result = 0;
      velmor_call(heap_, vstring_dictObjFree, velmor_sequence(heap_, 1, &argument), &result);
    }
    velmor_collect(heap_);
    return live_blocks();
  }

  VelmorHeap* heap_ = quiet_heap();
  std::vector<Command> commands_ = all_commands();
  RandomArguments arguments_{heap_, [this](std::size_t n) { return below(n); }};

 private:
  std::size_t below(std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(engine_);
  }

  void call(Command& command) {
    const HostObject argseq = arguments_.sequence();
    const std::uint64_t before = fingerprint(argseq);
    HostObject result = 0;
    const bool writes = kWriters.contains(command.name);
    if (writes) testing::internal::CaptureStdout(), testing::internal::CaptureStderr();
    const int ok = velmor_call(heap_, command.entry, argseq, &result);
    if (writes) testing::internal::GetCapturedStdout(), testing::internal::GetCapturedStderr();
    ASSERT_EQ(before, fingerprint(argseq)) << command.name;
    ASSERT_STREQ("", velmor_faults(heap_)) << command.name;
    if (ok != 0) {
      command.has_answered = true;
      std::free(velmor_print(heap_, result));
    } else {
      ASSERT_STRNE("", velmor_error(heap_)) << command.name;
    }
  }

  std::mt19937 engine_{20260117};
  std::size_t limit_before_ = 0;
};

TEST_F(RandomCalls, AreSound) {
  const char* const wanted = std::getenv("VSTRING_RANDOM_CALLS");
  const std::size_t calls = wanted != nullptr ? std::stoul(wanted) : kDefaultCalls;
  run(2000);
  const std::size_t before = live();
  run(calls);
  EXPECT_LE(live(), before + kCacheBlocks);
  for (const auto& [name, entry, has_answered] : commands_) {
    EXPECT_TRUE(has_answered || calls < kDefaultCalls) << name << " never got past its checks";
  }
}

}  // namespace
}  // namespace vstring_test
