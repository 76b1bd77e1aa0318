// Turning trees to objects.
#include <cstdlib>
#include <new>

#include "heap/object.h"
#include "language/parser.h"
#include "language/session.h"

namespace velmor {
namespace {

HostObject made(HostObject object) {
  if (object == 0) throw Failure("out of memory");
  return object;
}

bool is_constant(NodeKind kind) {
  return kind == NodeKind::kString || kind == NodeKind::kInteger || kind == NodeKind::kFloat;
}

// A sequence of one element is that element.
HostObject simplified(HostObject object) {
  if (velmor_tag(object) == HOST_TAG_SEQUENCE && velmor_size(object) == 1)
    return velmor_element(object, 1);
  return object;
}

std::int64_t operand(HostObject object, const Node& tree) {
  if (!is_integer(object)) throw Failure("expecting integers around `" + tree.text + "'");
  const std::int64_t value = velmor_to_integer(object);
  if (value == 0 && object != immediate(0)) throw Failure("integer too large for arithmetic");
  return value;
}

}  // namespace

void Expression::Release::operator()(Node* tree) const {
  const auto release_constants = [this](const auto& self, const Node& node) -> void {
    if (is_constant(node.kind) && node.object != 0) velmor_unroot(heap, node.object);
    for (const auto& part : node.parts) self(self, *part);
  };
  release_constants(release_constants, *tree);
  delete tree;
}

// Constants are made once, however often the tree is evaluated: objects do not change.
void Session::bind(Node& tree, Scope* scope) {
  if (tree.kind == NodeKind::kProcedure) return bind_procedure(tree, scope);
  switch (tree.kind) {
    case NodeKind::kString:
      tree.object = made(velmor_string_n(heap(), tree.text.data(), tree.text.size()));
      break;
    case NodeKind::kInteger:
      tree.object = made(velmor_big_integer(heap(), tree.text.c_str()));
      break;
    case NodeKind::kFloat:
      tree.object = made(velmor_float(heap(), std::strtod(tree.text.c_str(), nullptr)));
      break;
    case NodeKind::kName:
    case NodeKind::kCall:
    case NodeKind::kAssign:
    case NodeKind::kFor:
      tree.object = made(velmor_name(heap(), tree.text.c_str()));
      if (const auto found = functions_.find(tree.object); found != functions_.end())
        tree.callable = &found->second;
      if (scope != nullptr) tree.slot = scope->slot(tree.text);
      if (tree.slot != Node::kNone) tree.callable = nullptr;
      break;
    default:
      break;
  }
  if (is_constant(tree.kind)) velmor_root(heap(), tree.object);
  for (const auto& part : tree.parts) bind(*part, scope);
}

HostObject Session::value(const Node& tree) {
  switch (tree.kind) {
    case NodeKind::kName:
      return tree.slot != Node::kNone ? value_of_local(tree.slot) : value_of_name(tree.object);
    case NodeKind::kCall:
      return simplified(call(tree));
    case NodeKind::kCompare:
      return comparison(tree);
    case NodeKind::kAnd:
    case NodeKind::kOr:
    case NodeKind::kNot:
      return logic(tree);
    case NodeKind::kIndex:
      return indexed(tree);
    case NodeKind::kProcedure:
      return make_procedure(tree);
    case NodeKind::kAssign:
      return assign(tree);
    case NodeKind::kFor:
      throw Failure("a loop has no value");
    default:
      return compound(tree, true);
  }
}

HostObject Session::outermost_value(const Node& tree) {
  if (tree.kind == NodeKind::kSequence && tree.parts.size() == 1)
    return outermost_value(*tree.parts[0]);
  return tree.kind == NodeKind::kCall ? call(tree) : value(tree);
}

HostObject Session::unevaluated(const Node& tree) {
  switch (tree.kind) {
    case NodeKind::kName:
      return tree.slot != Node::kNone ? value_of_local(tree.slot) : tree.object;
    case NodeKind::kCompare:
    case NodeKind::kAnd:
    case NodeKind::kOr:
    case NodeKind::kNot:
    case NodeKind::kIndex:
    case NodeKind::kProcedure:
      return value(tree);
    case NodeKind::kCall:
      return made(velmor_function(heap(), tree.object, collection(tree, false)));
    default:
      return compound(tree, false);
  }
}

HostObject Session::compound(const Node& tree, bool evaluated) {
  switch (tree.kind) {
    case NodeKind::kUnevaluated:
      return unevaluated(*tree.parts[0]);
    case NodeKind::kSequence:
      return simplified(collection(tree, evaluated));
    case NodeKind::kList:
    case NodeKind::kSet:
      return collection(tree, evaluated);
    case NodeKind::kRange: {
      const HostObject low = side(*tree.parts[0], evaluated, "..");
      return made(velmor_range(heap(), low, side(*tree.parts[1], evaluated, "..")));
    }
    case NodeKind::kEquation: {
      const HostObject left = side(*tree.parts[0], evaluated, "=");
      return made(velmor_equation(heap(), left, side(*tree.parts[1], evaluated, "=")));
    }
    case NodeKind::kAdd:
    case NodeKind::kSubtract:
    case NodeKind::kMultiply:
    case NodeKind::kNegate:
      return arithmetic(tree, evaluated);
    default:
      return tree.object;
  }
}

// The list or set, or else the sequence, of a tree's parts.
HostObject Session::collection(const Node& tree, bool evaluated) {
  const std::size_t begin = stack_.size();
  for (const auto& part : tree.parts) {
    const HostObject element = evaluated ? value(*part) : unevaluated(*part);
    stack_.push_back(element);
  }
  const std::size_t n = stack_.size() - begin;
  const HostObject* const items = stack_.data() + begin;
  HostObject object;
  if (tree.kind == NodeKind::kList)
    object = velmor_list(heap(), n, items);
  else if (tree.kind == NodeKind::kSet)
    object = velmor_set(heap(), n, items);
  else
    object = velmor_sequence(heap(), n, items);
  stack_.resize(begin);
  return made(object);
}

HostObject Session::side(const Node& tree, bool evaluated, const char* op) {
  const HostObject object = evaluated ? value(tree) : unevaluated(tree);
  if (velmor_tag(object) == HOST_TAG_SEQUENCE)
    throw Failure(std::string("expecting one value on each side of `") + op + "'");
  return object;
}

HostObject Session::arithmetic(const Node& tree, bool evaluated) {
  const auto part = [&](std::size_t i) {
    const Node& node = *tree.parts[i];
    return operand(evaluated ? value(node) : unevaluated(node), tree);
  };
  std::int64_t result = 0;
  bool overflow = false;
  if (tree.kind == NodeKind::kNegate) {
    overflow = __builtin_sub_overflow(std::int64_t{0}, part(0), &result);
  } else {
    const std::int64_t left = part(0);
    const std::int64_t right = part(1);
    if (tree.kind == NodeKind::kAdd) overflow = __builtin_add_overflow(left, right, &result);
    if (tree.kind == NodeKind::kSubtract) overflow = __builtin_sub_overflow(left, right, &result);
    if (tree.kind == NodeKind::kMultiply) overflow = __builtin_mul_overflow(left, right, &result);
  }
  if (overflow) throw Failure("integer too large for arithmetic");
  return made(velmor_integer(heap(), result));
}

HostObject Session::value_of_name(HostObject name) {
  if (name == null_name_) return null_;
  const HostObject value = velmor::value_of_name(name);
  if (value == 0) throw Failure(kDefinedByItself + print(name));
  return value;
}

HostObject Session::assign(const Node& tree) {
  const HostObject name = tree.object;
  const HostObject assigned = value(*tree.parts[0]);
  if (velmor_is_protected(name) != 0) throw Failure("cannot assign to " + print(name));
  velmor_assign(heap(), name, assigned == name ? 0 : assigned);
  return assigned;
}

}  // namespace velmor
