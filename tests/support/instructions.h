// Counting the instructions of a command, for claims about its cost that no noise disturbs.
#pragma once
#include <cstdint>
#include <string>

namespace vstring_test {

// Instructions that the reference host takes to evaluate `expression`, its own start included; the
// value should be short. 0 when the host fails.
std::uint64_t instructions(const std::string& expression);

// Instructions of one call, such as `length("hello")`, once it has been made before: those of the
// command and of the host operations that it asks for, without the evaluation around it.
std::uint64_t call_instructions(const std::string& call);

// By how much the cost grows when n doubles, constant costs left out: 2 for a linear command.
// make(n) is the expression for size n.
template <typename Make>
double growth(Make make, std::size_t n) {
  // Beyond the sizes up to which a command may take another way, a tenth of it included.
  constexpr std::size_t kSmall = 8192;
  const auto cost = [&](std::size_t size) { return static_cast<double>(instructions(make(size))); };
  const double once = cost(n);
  const double small = cost(kSmall);
  // What a straight line through these two costs at 0.
  const auto times = static_cast<double>(n) / static_cast<double>(kSmall);
  const double constant = (times * small - once) / (times - 1);
  return (cost(2 * n) - constant) / (once - constant);
}

}  // namespace vstring_test
