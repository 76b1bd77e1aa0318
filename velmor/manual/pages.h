// The manual pages of the library, made from the rows of the commands.
#pragma once
#include <iosfwd>

#include "language/session.h"
#include "lexiva/commands.h"

namespace velmor {

// vstring(3): what there is, and what holds of every command.
void write_overview(std::ostream& out);

// That of one family, such as vstring-words(3). Every command stands in its NAME section, so that
// apropos finds it. The session tells what the commands refuse.
void write_family(std::ostream& out, const lexiva::Family& family, Session& session);

}  // namespace velmor
