// What the session keeps of a procedure, and where its names are found.
#pragma once
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "language/syntax.h"

namespace velmor {

struct Procedure {
  std::size_t parameters = 0;
  std::vector<std::size_t> captured_slots;  // of the enclosing procedure's frame
  std::string text;
  std::unique_ptr<Node> body;
};

// The names of one procedure while its body is bound. Its frame holds the arguments, then the
// captured values.
struct Scope {
  Scope* outer = nullptr;
  std::vector<std::string> parameters = {};
  std::vector<std::string> captured = {};
  std::vector<std::size_t> captured_slots = {};

  // The place of a name in the frame; kNone when no procedure around has such a parameter.
  std::size_t slot(const std::string& name);
};

}  // namespace velmor
