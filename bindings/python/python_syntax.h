// Expressions of velmor's language as Python has them, for examples.
#pragma once
#include <string>
#include <string_view>

namespace vstring_python {

// Lines ">>> expression", and what each of them shows. Throws for an example that Python's form
// cannot be told of.
std::string python_example(std::string_view example, std::string_view result);

}  // namespace vstring_python
