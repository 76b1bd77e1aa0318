// Statements typed or piped in.
#pragma once

#include "language/session.h"

namespace velmor {

// Talks with the user at a terminal until the end of input or a line that says quit. A failure is
// the user's to see, not the run's.
void prompt(Session& session);

// Runs standard input line by line, each answered as it comes, to its end or a line that says quit.
Verdict run_standard_input(Session& session);

}  // namespace velmor
