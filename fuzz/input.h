// What all fuzzers share: numbers and texts from the fuzzing engine's bytes, and the complaint.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vstring_test {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  bool empty() const { return rest_.empty(); }
  // A number below n; 0 when there is nothing left.
  std::size_t below(std::size_t n);
  // What stands before the next NUL, no more than that of it.
  std::string text(std::size_t longest);
  // From now on texts are made of few letters, as many as the next byte says, or of all bytes.
  void choose_letters() { letters_ = below(6); }

 private:
  std::string_view rest_;
  std::size_t letters_ = 0;
};

// Ends the program unless the answer is the expected one.
void expect_same(const std::string& expected, const std::string& answer);

// One execution; each fuzzer has its own.
void try_input(Input& input);

}  // namespace vstring_test
