// A line on the terminal that tells how far a long run has come.
#pragma once
#include <chrono>
#include <cstddef>

namespace velmor {

class Progress {
 public:
  // For `total` bytes; 0: shows nothing.
  explicit Progress(std::size_t total) : total_(total) {}
  ~Progress() { hide(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // So many more bytes are done. Shows the line from the first second on, now and then.
  void advance(std::size_t bytes);

  // Makes room for other output.
  void hide();

 private:
  using Clock = std::chrono::steady_clock;
  void show(double seconds);

  std::size_t total_;
  std::size_t done_ = 0;
  Clock::time_point start_ = Clock::now();
  Clock::time_point next_ = start_ + std::chrono::seconds(1);
  bool shown_ = false;
};

}  // namespace velmor
