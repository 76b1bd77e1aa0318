// `velmor help`: what the rows of the Lexiva package say.
#pragma once
#include <iosfwd>
#include <string>

namespace velmor {

// Every family with its commands, a line each.
void list_commands(std::ostream& out);

// Signature, help and example of one command. False, and nothing written, when there is none.
bool describe_command(std::ostream& out, const std::string& name);

}  // namespace velmor
