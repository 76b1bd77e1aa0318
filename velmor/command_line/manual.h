// The manual page velmor(1).
#pragma once
#include <iosfwd>

#include "command_line/outline.h"

namespace velmor {

// In the man macros of roff, from what the command line declares and the rows of the commands.
void write_manual(std::ostream& out, const Outline& program);

}  // namespace velmor
