// Completion of velmor's command line in shells.
#pragma once
#include <iosfwd>
#include <string>

#include "command_line/outline.h"

namespace velmor {

// A script for `shell`, which is bash, zsh or fish.
void write_completion(std::ostream& out, const Outline& program, const std::string& shell);

}  // namespace velmor
