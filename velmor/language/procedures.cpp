// Procedures: x -> EXPR and (x, y) -> EXPR.
//
// A procedure object holds the number of its code, which the session keeps for good, and the values
// of the parameters of enclosing procedures that its body uses, taken when it was made. A call puts
// its arguments and those values into a frame; the body's names know their places there.
#include "language/procedures.h"

#include <pthread.h>

#include <algorithm>

#include "heap/object.h"
#include "language/session.h"

namespace velmor {
namespace {

constexpr std::size_t kLargestStack = std::size_t{4} << 20;

// The middle of this thread's stack: what lies below is room for the library and for one more body.
const char* middle_of_stack() {
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return nullptr;
  void* lowest = nullptr;
  std::size_t size = 0;
  pthread_attr_getstack(&attributes, &lowest, &size);
  pthread_attr_destroy(&attributes);
  return static_cast<const char*>(lowest) + size / 2;
}

std::string counted(std::size_t n, const char* what) {
  return std::to_string(n) + " " + what + (n == 1 ? "" : "s");
}

}  // namespace

std::size_t Scope::slot(const std::string& name) {
  // The last of two parameters of one name, as in nested procedures.
  const auto parameter = std::find(parameters.rbegin(), parameters.rend(), name);
  if (parameter != parameters.rend())
    return static_cast<std::size_t>(parameters.rend() - parameter) - 1;
  const auto known = std::ranges::find(captured, name);
  const std::size_t place = static_cast<std::size_t>(known - captured.begin());
  if (known == captured.end()) {
    const std::size_t outside = outer == nullptr ? Node::kNone : outer->slot(name);
    if (outside == Node::kNone) return Node::kNone;
    captured.push_back(name);
    captured_slots.push_back(outside);
  }
  return parameters.size() + place;
}

void Session::bind_procedure(Node& tree, Scope* outer) {
  Scope scope{.outer = outer};
  for (std::size_t i = 0; i + 1 < tree.parts.size(); ++i)
    scope.parameters.push_back(tree.parts[i]->text);
  bind(*tree.parts.back(), &scope);
  tree.slot = procedures_.size();
  procedures_.push_back(
      {scope.parameters.size(), scope.captured_slots, tree.text, std::move(tree.parts.back())});
  tree.parts.pop_back();
}

HostObject Session::make_procedure(const Node& tree) {
  const Procedure& code = procedures_[tree.slot];
  std::vector<HostObject> data = {immediate(static_cast<std::int64_t>(tree.slot))};
  for (const std::size_t slot : code.captured_slots) data.push_back(locals_[frame_ + slot]);
  const HostObject list = velmor_list(heap(), data.size(), data.data());
  const HostObject made = velmor_procedure(heap(), code.text.c_str(), list);
  if (list == 0 || made == 0) throw Failure("out of memory");
  return made;
}

HostObject Session::call_procedure(HostObject procedure, HostObject argseq) {
  const HostObject data = velmor_procedure_data(procedure);
  const Procedure& code =
      procedures_[static_cast<std::size_t>(velmor_to_integer(velmor_element(data, 1)))];
  const std::size_t n = velmor_size(argseq);
  if (n != code.parameters)
    throw Failure(code.text + " expects " + counted(code.parameters, "argument") + ", but got " +
                  std::to_string(n));
  check_stack();
  const EvaluationScope scope(*this);
  frame_ = locals_.size();
  for (std::size_t i = 1; i <= n; ++i) locals_.push_back(velmor_element(argseq, i));
  for (std::size_t i = 2; i <= velmor_size(data); ++i) locals_.push_back(velmor_element(data, i));
  return value(*code.body);
}

void Session::check_stack() const {
  thread_local const char* const middle = middle_of_stack();
  const char* const here = static_cast<const char*>(__builtin_frame_address(0));
  if (here < middle || static_cast<std::size_t>(stack_base_ - here) > kLargestStack)
    throw Failure("procedures call each other too deeply");
}

// What a command asks the host to evaluate. Failures must not pass through the library's frames.
int Session::evaluate_procedure(void* context, VelmorHeap* heap, HostObject procedure,
                                HostObject argseq, HostObject* result) {
  Session& session = *static_cast<Session*>(context);
  const EvaluationScope scope(session);
  ++session.nesting_;
  try {
    const HostObject value = session.call_value(procedure, argseq);
    *result = velmor_tag(value) == HOST_TAG_SEQUENCE && velmor_size(value) == 1
                  ? velmor_element(value, 1)
                  : value;
  } catch (const Failure& failure) {
    session.inner_failure_ = std::make_unique<Failure>(failure);
    velmor_fail(heap, failure.what());
    *result = 0;
  }
  --session.nesting_;
  return *result != 0 ? 1 : 0;
}

}  // namespace velmor
