// What the terminal can show.
#pragma once

#include "language/session.h"

namespace velmor {

// Whether standard output is a terminal and the locale's characters are those of UTF-8.
bool shows_utf8();

// Values print with their valid UTF-8 as it is when standard output shows it.
void display_for_terminal(Session& session);

}  // namespace velmor
