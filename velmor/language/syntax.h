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
  kAssign,       // text: the name; parts: the value
};

struct Node {
  NodeKind kind;
  std::string text;
  std::vector<std::unique_ptr<Node>> parts;
  std::size_t depth = 1;  // levels of the tree below and with this node
  std::size_t line = 1;   // of the statement's text

  // Made by the session: the constant, or the name of a name, call or assignment; and what a call
  // of a name that cannot be assigned calls.
  HostObject object = 0;
  const Callable* callable = nullptr;
};

}  // namespace velmor
