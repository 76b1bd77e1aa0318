// Standard output as a stream that knows why it failed.
#pragma once
#include <array>
#include <streambuf>

namespace velmor {

// While it lives, std::cout writes through it to file descriptor 1.
class StandardOutput final : std::streambuf {
 public:
  StandardOutput();
  ~StandardOutput() override;
  StandardOutput(const StandardOutput&) = delete;
  StandardOutput& operator=(const StandardOutput&) = delete;

  // Writes what is left. Throws std::runtime_error when any output was lost.
  void finish();

 private:
  int_type overflow(int_type c) override;
  int sync() override;

  std::array<char, 1 << 16> buffer_;
  std::streambuf* before_;
  int error_ = 0;  // of the first write that failed
};

}  // namespace velmor
