// The tree that the parser makes of a statement.
#pragma once
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "host/vstring.h"

namespace velmor {

struct Callable;

enum class NodeKind {
  kString,       // text
  kInteger,      // text: decimal, perhaps with a minus sign
  kFloat,        // text
  kName,         // text
  kCall,         // text: the called name; parts: its arguments
  kSequence,     // parts
  kList,         // parts
  kSet,          // parts
  kRange,        // parts: low, high
  kEquation,     // parts: left, right
  kAdd,          // parts: left, right
  kSubtract,     // parts: left, right
  kMultiply,     // parts: left, right
  kNegate,       // parts: one
  kUnevaluated,  // parts: one
  kCompare,      // text: the operator; parts: left, right
  kAnd,          // parts: left, right
  kOr,           // parts: left, right
  kNot,          // parts: one
  kIndex,        // parts: what is indexed, the index
  kProcedure,    // text: the whole as written; parts: names of the parameters, the body
  kAssign,       // text: the name; parts: the value
  kFor,          // text: the name; parts: what it runs over, the statements
};

struct Node {
  NodeKind kind;
  std::string text;
  std::vector<std::unique_ptr<Node>> parts;
  std::size_t depth = 1;  // levels of the tree below and with this node
  std::size_t line = 1;   // of the statement's text
  bool prints = true;     // of a statement of a loop: not ended by a colon

  // Made by the session. The constant, or the name of a name, call, assignment or loop; what a call
  // of a name that cannot be assigned calls; the place in the frame of a parameter's name; the
  // number of a procedure.
  HostObject object = 0;
  const Callable* callable = nullptr;
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t slot = kNone;
};

}  // namespace velmor
