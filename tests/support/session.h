// The host session that a whole test program shares; commands come from the static library.
#pragma once
#include <string>

#include "language/session.h"

namespace vstring_test {

velmor::Session& session();

// Prints what the call gives: the value, or "error: <message>".
std::string evaluate(const std::string& call);

// A text as a literal of the host's language.
std::string quoted(const std::string& bytes);

}  // namespace vstring_test
