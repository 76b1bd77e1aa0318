#include "prompt/checkpoint.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace velmor {
namespace {

constexpr const char* kPlaceholder = "--placeholder-for";

volatile pid_t copy = 0;
volatile int wake = -1;  // writing here wakes the copy
struct sigaction usual_handler;

int exit_code_of(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0)
    if (errno != EINTR) return 1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

void block_interrupts(bool block) {
  sigset_t interrupts;
  sigemptyset(&interrupts);
  sigaddset(&interrupts, SIGINT);
  sigprocmask(block ? SIG_BLOCK : SIG_UNBLOCK, &interrupts, nullptr);
}

// The handler of Ctrl-C while a statement runs: async-signal-safe operations only.
void hand_over(int /*signal*/) {
  std::signal(SIGINT, SIG_IGN);
  block_interrupts(false);
  [[maybe_unused]] const ssize_t written = write(wake, "", 1);
  char number[16];
  char* digits = number + sizeof number - 1;
  *digits = '\0';
  for (pid_t rest = copy; rest > 0; rest /= 10) *--digits = static_cast<char>('0' + rest % 10);
  execl("/proc/self/exe", "velmor", kPlaceholder, digits, nullptr);
  _exit(exit_code_of(copy));
}

// Waits until the statement has ended, and this process with it, or was interrupted.
void stand_by(int sleep) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  char byte;
  ssize_t got;
  do got = read(sleep, &byte, 1);
  while (got < 0 && errno == EINTR);
  if (got != 1) _exit(0);
  prctl(PR_SET_PDEATHSIG, SIGHUP);
}

}  // namespace

bool Checkpoint::set() {
  std::cout.flush();
  std::fflush(nullptr);
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return false;
  block_interrupts(true);
  copy = fork();
  if (copy == 0) {
    close(ends[1]);
    stand_by(ends[0]);
    close(ends[0]);
    block_interrupts(false);
    return true;
  }
  close(ends[0]);
  wake = ends[1];
  struct sigaction handler {};
  handler.sa_handler = copy > 0 ? hand_over : SIG_DFL;
  sigaction(SIGINT, &handler, &usual_handler);
  block_interrupts(false);
  return false;
}

void Checkpoint::clear() {
  if (wake < 0) return;
  block_interrupts(true);
  sigaction(SIGINT, &usual_handler, nullptr);
  close(wake);
  wake = -1;
  if (copy > 0) exit_code_of(copy);
  block_interrupts(false);
}

std::optional<int> placeholder(int argc, char** argv) {
  if (argc != 3 || std::strcmp(argv[1], kPlaceholder) != 0) return std::nullopt;
  return exit_code_of(std::atoi(argv[2]));
}

}  // namespace velmor
