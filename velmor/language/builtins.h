// The language's own functions, with what help says about them.
#pragma once
#include <span>

#include "heap/velmor_runtime.h"
#include "language/callable.h"

namespace velmor {

struct Builtin {
  const char* name;
  const char* signature;
  const char* help;
  const char* example;
  const char* result;
  // One of the two is there: the second evaluates its arguments itself.
  HostObject (Session::*function)(HostObject argseq);
  HostObject (Session::*form)(const Node& call);
};

std::span<const Builtin> builtins();

}  // namespace velmor
