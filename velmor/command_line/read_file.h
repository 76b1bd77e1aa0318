// Scripts as files.
#pragma once
#include <string>

namespace velmor {

// The contents of a file, or of standard input when `name` is "-", without the byte-order mark that
// some editors put at the front. Throws std::runtime_error when it cannot be read.
std::string read_script(const std::string& name);

}  // namespace velmor
