// Scripts as files.
#pragma once
#include <string>

namespace velmor {

// Removes the byte-order mark that some editors put in front of a UTF-8 text.
void remove_byte_order_mark(std::string& text);

// The contents of a file, or of standard input when `name` is "-", without a byte-order mark.
// Throws std::runtime_error when it cannot be read.
std::string read_script(const std::string& name);

}  // namespace velmor
