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
  // Beyond the sizes up to which a command may take a simpler way.
  constexpr std::size_t kSmall = 1024;
  const auto fixed = static_cast<double>(instructions(make(kSmall)));
  const auto once = static_cast<double>(instructions(make(n)));
  const auto twice = static_cast<double>(instructions(make(2 * n)));
  return (twice - fixed) / (once - fixed);
}

}  // namespace vstring_test
