// The names that are there from the start: the commands, and functions of the language's own.
//   with(Lexiva)              does nothing: the commands of the package are there already
//   TRY(n, call, expected)    fails unless the call has the expected value
#include "language/session.h"
#include "language/syntax.h"
#include "lexiva/commands.h"

namespace velmor {

void Session::bind_commands(const Resolver& resolver) {
  const auto bind = [&](const char* name, const lexiva::Command& command) {
    if (const VelmorCommand address = resolver(command.entry_point))
      functions_[velmor_name(heap(), name)] = {command.name, address};
  };
  for (const lexiva::Family& family : lexiva::families())
    for (const lexiva::Command& command : family.commands) bind(command.name, command);
  for (const lexiva::Alias& alias : lexiva::aliases())
    if (const lexiva::Command* command = lexiva::find(alias.command)) bind(alias.name, *command);
}

void Session::bind_builtins() {
  const auto bind = [this](Callable function) {
    const HostObject name = velmor_name(heap(), function.name.c_str());
    functions_[name] = std::move(function);
  };
  bind({.name = "with", .form = &Session::with});
  bind({.name = "TRY", .form = &Session::compare});
}

HostObject Session::with(const Node& call) {
  const HostObject package = collection(call, true);
  for (std::size_t i = 1; i <= velmor_size(package); ++i) {
    const char* const name = velmor_text(velmor_element(package, i));
    if (name == nullptr || std::string_view(name) != "Lexiva")
      throw Failure("no such package: " + print(velmor_element(package, i)), "with");
  }
  if (velmor_size(package) == 0) throw Failure("expecting the name of a package", "with");
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

}  // namespace velmor
