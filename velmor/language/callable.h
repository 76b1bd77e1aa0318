// What a call of a name that cannot be assigned calls.
#pragma once
#include <string>

#include "heap/velmor_runtime.h"

namespace velmor {

class Session;
struct Node;

// One of the three is there.
struct Callable {
  std::string name;
  VelmorCommand command = nullptr;                              // of the library
  HostObject (Session::*builtin)(HostObject argseq) = nullptr;  // of the language
  HostObject (Session::*form)(const Node& call) = nullptr;      // evaluates its arguments itself
};

}  // namespace velmor
