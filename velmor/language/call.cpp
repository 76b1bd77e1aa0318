// Calls: of commands, and of the language's own functions.
#include "heap/object.h"
#include "language/session.h"
#include "language/syntax.h"

namespace velmor {

HostObject Session::call(const Node& tree) {
  try {
    if (tree.callable != nullptr && tree.callable->form != nullptr)
      return (this->*tree.callable->form)(tree);
    const HostObject function = value_of_name(tree.object);
    if (velmor_tag(function) != HOST_TAG_NAME)
      throw Failure(print(tree.object) + " is not a function but " + print(function));
    return call_function(function, collection(tree, true));
  } catch (Failure& failure) {
    failure.set_line(tree.line);
    throw;
  }
}

HostObject Session::call_function(HostObject function, HostObject argseq) {
  if (const auto found = functions_.find(function); found != functions_.end()) {
    const Callable& callable = found->second;
    if (callable.command != nullptr) return call_command(callable, argseq);
    if (callable.builtin != nullptr) return (this->*callable.builtin)(argseq);
  }
  if (!symbolic) throw unknown(velmor_text(function));
  const HostObject object = velmor_function(heap(), function, argseq);
  if (object == 0) throw Failure("out of memory");
  return object;
}

HostObject Session::call_command(const Callable& command, HostObject argseq) {
  if (before_call) before_call(command.name, argseq);
  HostObject result = 0;
  const bool ok = velmor_call(heap(), command.command, argseq, &result) != 0;
  if (after_call) after_call(command.name, argseq);
  if (!ok) throw Failure(velmor_error(heap()), command.name);
  return result;
}

// What a command asks the host to evaluate may be another command.
int Session::evaluate_procedure(void* context, VelmorHeap* heap, HostObject procedure,
                                HostObject argseq, HostObject* result) {
  const Session& session = *static_cast<Session*>(context);
  const auto found = session.functions_.find(procedure);
  if (found != session.functions_.end() && found->second.command != nullptr)
    return velmor_call(heap, found->second.command, argseq, result);
  *result = velmor_function(heap, procedure, argseq);
  if (*result != 0) return 1;
  velmor_fail(heap, "out of memory");
  return 0;
}

}  // namespace velmor
