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

// Every exported command.
struct Command {
  std::string name;
  VelmorCommand entry;
  bool has_answered = false;
};
std::vector<Command> all_commands();

// A heap whose host says nothing.
VelmorHeap* quiet_heap();

class RandomArguments {
 public:
  // choose(n) gives a number below n: from a random engine, or from a fuzzer's bytes.
  using Choose = std::function<std::size_t(std::size_t n)>;
  RandomArguments(VelmorHeap* heap, Choose choose) : heap_(heap), below_(std::move(choose)) {}

  HostObject sequence();

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
  Choose below_;
};

}  // namespace vstring_test
