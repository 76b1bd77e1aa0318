// A bound on the processor time of a test whose wrong answer would be to run for hours. The machine
// may be as busy as it likes: only this process counts.
#pragma once
#include <sys/time.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace vstring_test {

class CpuBound {
 public:
  explicit CpuBound(int seconds) {
    std::signal(SIGPROF, [](int) {
      constexpr char kMessage[] = "A test has used up its processor time.\n";
      if (write(STDERR_FILENO, kMessage, sizeof kMessage - 1) >= 0) std::abort();
    });
    arm(seconds);
  }
  ~CpuBound() { arm(0); }
  CpuBound(const CpuBound&) = delete;
  CpuBound& operator=(const CpuBound&) = delete;

 private:
  static void arm(int seconds) {
    const itimerval timer = {{0, 0}, {seconds, 0}};
    setitimer(ITIMER_PROF, &timer, nullptr);
  }
};

}  // namespace vstring_test
