// Random argument sequences: right and wrong kinds, names for strings, surplus arguments, numbers
// at the edges of what commands accept.
#pragma once
#include <cstddef>
#include <random>

#include "runtime/velmor_runtime.h"

namespace vstring_test {

class RandomArguments {
 public:
  RandomArguments(VelmorHeap* heap, unsigned seed) : heap_(heap), engine_(seed) {}

  HostObject sequence();
  std::size_t below(std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(engine_);
  }

 private:
  HostObject of_kind(char kind);
  HostObject value(int depth);
  HostObject text();
  HostObject integer();
  HostObject word();
  HostObject list(int depth);
  HostObject range();
  HostObject equation(int depth);

  VelmorHeap* heap_;
  std::mt19937 engine_;
};

}  // namespace vstring_test
