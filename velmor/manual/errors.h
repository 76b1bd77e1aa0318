// What a command refuses.
#pragma once
#include <string>
#include <vector>

#include "language/session.h"
#include "lexiva/commands.h"

namespace velmor {

// The different messages of a command, as it gives them: without arguments, and in its example
// with one argument after the other replaced by what it may not take. Those that only a rarer call
// would bring about are missing.
std::vector<std::string> errors_of(Session& session, const lexiva::Command& command);

}  // namespace velmor
