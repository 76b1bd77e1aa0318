// Values as JSON (RFC 8259), one line each.
#pragma once
#include <string>

#include "host/vstring.h"

namespace velmor {

// Appends `value`: a string with each byte as the character U+0000 to U+00FF of that code, written
// in UTF-8; integers of any size and floats as numbers; lists, sets and sequences as arrays; true
// and false; null for FAIL, for the empty sequence, and for floats that are no number. A name is
// the string of its text, and any other expression the string of what it prints. Any depth of
// nesting is safe.
void append_json(std::string& out, HostObject value);

}  // namespace velmor
