// The commands, each a function of the module.
#pragma once
#include <cstddef>
#include <string_view>

#include "heap/velmor_runtime.h"
#include "reference.h"

namespace vstring_python {

struct Command {
  const char* name;
  VelmorCommand entry;
  const char* documentation;
};

constexpr std::size_t kNoCommand = static_cast<std::size_t>(-1);

const Command& command(std::size_t i);
PyObject* function_of(std::size_t i);  // borrowed
std::size_t command_of(PyObject* function);
std::size_t command_called(std::string_view name);

// Puts the functions, aliases among them, into the module; false with a Python exception.
bool add_commands(PyObject* module);

}  // namespace vstring_python
