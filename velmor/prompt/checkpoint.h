// Ctrl-C during a statement: everything is as it was before it.
//
// Commands cannot be asked to stop, and one that is left in the middle may leave anything behind.
// So a copy of the process is made (by fork) before each statement, and waits. When the statement
// ends, the copy goes. When the user interrupts it, the copy goes on as the session, while the
// process that was interrupted becomes a mere placeholder, which gives its memory back, waits for
// the copy and ends with its exit code: the shell notices nothing.
#pragma once
#include <optional>

namespace velmor {

class Checkpoint {
 public:
  // Before a statement. Returns false in the process that ran it; and once more, with true, in the
  // copy, should the statement be interrupted. Where no copy can be made, Ctrl-C ends the program.
  static bool set();

  // After a statement.
  static void clear();
};

// What main does first: the exit code of the process to wait for, when this one was started as a
// placeholder.
std::optional<int> placeholder(int argc, char** argv);

}  // namespace velmor
