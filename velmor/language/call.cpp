// Calls of commands, of the language's own functions, and of procedures.
#include "heap/object.h"
#include "language/session.h"
#include "language/syntax.h"

namespace velmor {

HostObject Session::call(const Node& tree) {
  try {
    if (tree.callable != nullptr && tree.callable->form != nullptr)
      return (this->*tree.callable->form)(tree);
    if (tree.callable != nullptr) return call_known(*tree.callable, collection(tree, true));
    const HostObject function =
        tree.slot != Node::kNone ? value_of_local(tree.slot) : value_of_name(tree.object);
    return call_value(function, collection(tree, true), tree.text);
  } catch (Failure& failure) {
    failure.set_line(tree.line);
    throw;
  }
}

HostObject Session::call_known(const Callable& callable, HostObject argseq) {
  if (callable.command != nullptr) return call_command(callable, argseq);
  if (callable.builtin != nullptr) return (this->*callable.builtin)(argseq);
  throw Failure(callable.name + " can only be called by its name");
}

// `name` is what a call called, to be told when it is no function.
HostObject Session::call_value(HostObject function, HostObject argseq, const std::string& name) {
  if (velmor_tag(function) == HOST_TAG_NAME) function = value_of_name(function);
  switch (velmor_tag(function)) {
    case kTagProcedure:
      return call_procedure(function, argseq);
    case HOST_TAG_NAME:
      if (const auto found = functions_.find(function); found != functions_.end())
        return call_known(found->second, argseq);
      if (!symbolic) throw unknown(velmor_text(function));
      [[fallthrough]];
    case HOST_TAG_CALL: {
      const HostObject object = velmor_function(heap(), function, argseq);
      if (object == 0) throw Failure("out of memory");
      return object;
    }
    default:
      throw Failure(name.empty() ? print(function) + " is not a function"
                                 : name + " is not a function but " + print(function));
  }
}

HostObject Session::call_command(const Callable& command, HostObject argseq) {
  const bool outermost = nesting_ == 0;
  if (before_call && outermost) before_call(command.name, argseq);
  inner_failure_.reset();
  HostObject result = 0;
  const bool ok = velmor_call(heap(), command.command, argseq, &result) != 0;
  if (after_call && outermost) after_call(command.name, argseq);
  if (ok) return result;
  // A failure of what the command had evaluated is told as it arose, not as the command's own.
  if (inner_failure_ != nullptr && std::string_view(inner_failure_->what()) == velmor_error(heap()))
    throw Failure(*inner_failure_);
  throw Failure(velmor_error(heap()), command.name);
}

}  // namespace velmor
