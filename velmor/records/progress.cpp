#include "records/progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "output/write_all.h"

namespace velmor {

void Progress::advance(std::size_t bytes) {
  done_ += bytes;
  if (total_ == 0) return;
  const Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + std::chrono::milliseconds(200);
  show(std::chrono::duration<double>(now - start_).count());
}

void Progress::show(double seconds) {
  constexpr double kMegabyte = 1e6;
  const auto done = static_cast<double>(done_);
  const double left = std::max(0.0, static_cast<double>(total_) - done);
  char line[100];
  const int n = std::snprintf(
      line, sizeof line, "\r\033[K%.0f%% of %.0f MB, %.1f MB/s, %.0f s left",
      100 * done / static_cast<double>(total_), static_cast<double>(total_) / kMegabyte,
      done / seconds / kMegabyte, done > 0 ? left / done * seconds : 0.0);
  write_all(STDERR_FILENO, {line, static_cast<std::size_t>(n)});
  shown_ = true;
}

void Progress::hide() {
  if (shown_) write_all(STDERR_FILENO, "\r\033[K");
  shown_ = false;
}

}  // namespace velmor
