#include "commands.h"

#include <array>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "call.h"

namespace vstring_python {
namespace {

constexpr Command kCommands[] = {
#define COMMAND(name, entry, documentation) {name, entry, documentation},
#define ALIAS(name, command)
#include "commands.inc"
#undef COMMAND
#undef ALIAS
};
constexpr std::size_t kCount = sizeof kCommands / sizeof kCommands[0];

constexpr const char* kAliases[][2] = {
#define COMMAND(name, entry, documentation)
#define ALIAS(name, command) {name, command},
#include "commands.inc"
#undef COMMAND
#undef ALIAS
};

// A function of a module can be pickled by its name, but does not know which one it is: each
// command has an entry of its own.
template <std::size_t I>
PyObject* entry(PyObject* /*module*/, PyObject* const* arguments, Py_ssize_t n,
                PyObject* keywords) {
  return call_command(I, arguments, n, keywords);
}

using Entry = PyObject* (*)(PyObject*, PyObject* const*, Py_ssize_t, PyObject*);

template <std::size_t... I>
std::array<PyMethodDef, kCount> make_definitions(std::index_sequence<I...>) {
  const auto definition = [](std::size_t i, Entry function) -> PyMethodDef {
    return {kCommands[i].name,
            reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function)),
            METH_FASTCALL | METH_KEYWORDS, kCommands[i].documentation};
  };
  return {definition(I, entry<I>)...};
}

std::array<PyMethodDef, kCount> definitions = make_definitions(std::make_index_sequence<kCount>());
std::array<PyObject*, kCount> functions;

// Both live as long as the process: threads may still run when it ends.
auto& by_function = *new std::unordered_map<PyCFunction, std::size_t>;
auto& by_name = *new std::unordered_map<std::string_view, std::size_t>;

}  // namespace

const Command& command(std::size_t i) { return kCommands[i]; }

PyObject* function_of(std::size_t i) { return functions[i]; }

std::size_t command_of(PyObject* function) {
  if (Py_TYPE(function) != &PyCFunction_Type) return kNoCommand;
  const auto found = by_function.find(PyCFunction_GetFunction(function));
  return found == by_function.end() ? kNoCommand : found->second;
}

std::size_t command_called(std::string_view name) {
  const auto found = by_name.find(name);
  return found == by_name.end() ? kNoCommand : found->second;
}

bool add_commands(PyObject* module) {
  const Reference package_name(PyUnicode_FromString("vstring"));
  if (!package_name) return false;
  for (std::size_t i = 0; i < kCount; ++i) {
    functions[i] = PyCFunction_NewEx(&definitions[i], nullptr, package_name.get());
    if (functions[i] == nullptr ||
        PyObject_SetAttrString(module, kCommands[i].name, functions[i]) < 0)
      return false;
    by_function[definitions[i].ml_meth] = i;
    by_name[kCommands[i].name] = i;
  }
  for (const auto& [alias, name] : kAliases) {
    const Reference function(PyObject_GetAttrString(module, name));
    if (!function || PyObject_SetAttrString(module, alias, function.get()) < 0) return false;
    by_name[alias] = command_of(function.get());
  }
  return true;
}

}  // namespace vstring_python
