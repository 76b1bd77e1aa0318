// Random argument sequences: right and wrong kinds, names for strings, surplus arguments, numbers
// at the edges of what commands accept.
#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "heap/velmor_runtime.h"

namespace vstring_test {

class RandomArguments {
 public:
  // choose(n) gives a number below n: from a random engine, or from a fuzzer's bytes.
  using Choose = std::function<std::size_t(std::size_t n)>;
  RandomArguments(VelmorHeap* heap, Choose choose) : heap_(heap), below_(std::move(choose)) {}

  HostObject sequence();
  HostObject value(int depth);

 private:
  HostObject of_kind(char kind);
  HostObject text();
  HostObject integer();
  HostObject small_integer();
  HostObject word_of(const std::vector<std::string>& words);
  HostObject procedure();
  template <typename Element>
  HostObject list_of(Element element);
  HostObject list(int depth);
  HostObject range();
  HostObject equation(int depth);

  VelmorHeap* heap_;
  Choose below_;
};

}  // namespace vstring_test
