// Calls: of commands, and of the language's own functions.
#include "heap/object.h"
#include "language/session.h"

namespace velmor {

HostObject Session::call(const Node& tree) {
  if (tree.object == with_name_) return with(tree);
  if (tree.object == try_name_) return compare(tree);
  const HostObject function = value_of_name(tree.object);
  if (velmor_tag(function) != HOST_TAG_NAME)
    throw Failure(print(tree.object) + " is not a function but " + print(function));
  const HostObject argseq = collection(tree, true);
  if (const auto found = commands_.find(function); found != commands_.end())
    return call_command(found->second, argseq);
  const HostObject object = velmor_function(heap(), function, argseq);
  if (object == 0) throw Failure("out of memory");
  return object;
}

HostObject Session::call_command(const Command& command, HostObject argseq) {
  if (before_call) before_call(command.name, argseq);
  HostObject result = 0;
  const bool ok = velmor_call(heap(), command.address, argseq, &result) != 0;
  if (after_call) after_call(command.name, argseq);
  if (!ok) throw Failure(velmor_error(heap()), command.name);
  return result;
}

HostObject Session::with(const Node& call) {
  const HostObject package = collection(call, true);
  for (std::size_t i = 1; i <= velmor_size(package); ++i) {
    const char* const name = velmor_text(velmor_element(package, i));
    if (name == nullptr || std::string_view(name) != "Lexiva")
      throw Failure("no such package: " + print(velmor_element(package, i)), "with");
  }
  if (velmor_size(package) == 0) throw Failure("expecting the name of a package", "with");
  load_lexiva();
  return null_;
}

// Both values are compared as they print, which tells any two values apart.
HostObject Session::compare(const Node& call) {
  if (call.parts.size() != 3)
    throw Failure("expecting a number, a call and its expected value", "TRY");
  const std::string number = print(value(*call.parts[0]));
  const std::string got = print(value(*call.parts[1]));
  const std::string expected = print(value(*call.parts[2]));
  if (got != expected)
    throw Failure("test " + number + " failed: expected " + expected + ", got " + got, "TRY");
  return null_;
}

// What a command asks the host to evaluate may be another command.
int Session::evaluate_procedure(void* context, VelmorHeap* heap, HostObject procedure,
                                HostObject argseq, HostObject* result) {
  const Session& session = *static_cast<Session*>(context);
  if (const auto found = session.commands_.find(procedure); found != session.commands_.end())
    return velmor_call(heap, found->second.address, argseq, result);
  *result = velmor_function(heap, procedure, argseq);
  if (*result != 0) return 1;
  velmor_fail(heap, "out of memory");
  return 0;
}

}  // namespace velmor
