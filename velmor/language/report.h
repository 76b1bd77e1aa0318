// Failures as a user reads them.
#pragma once
#include <iosfwd>
#include <string>

#include "language/failure.h"
#include "language/statements.h"

namespace velmor {

// "Error, (in take) expecting 2 arguments, but got 1 (a.velmor, line 3)", the place being told when
// there is a name; with a syntax error also the line, and a caret below what is wrong.
void report(std::ostream& err, const Failure& failure, const Statement& statement,
            const std::string& name);

}  // namespace velmor
