// Tables of rules are parsed by consteval functions.
#pragma once

namespace vstring {

// What they call for a row that they cannot read: no constant expression, and defined nowhere, so
// that the library does not compile.
void malformed_row();

}  // namespace vstring
