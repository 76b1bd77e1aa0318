// What the row of a command says.
#pragma once
#include <iosfwd>
#include <string>

namespace velmor {

// Signature, help, arguments, result and example of one command. False, and nothing written, when
// there is none.
bool describe_command(std::ostream& out, const std::string& name);

}  // namespace velmor
