// Values as lines of tab-separated fields.
#pragma once
#include <string>

#include "host/vstring.h"

namespace velmor {

// Appends the items of a list, set or sequence as fields with tabs between; any other value is one
// field. A string is its bytes, anything else what it prints. Within a field a tab, newline,
// carriage return and backslash are written \t, \n, \r and \\.
void append_tsv(std::string& out, HostObject value);

}  // namespace velmor
