// vstring-host(3), made from what vstring.h tells the authors of hosts.
#pragma once
#include <iosfwd>

namespace velmor {

// From the header's first comment to its section on memory, where the contract ends.
void write_host_page(std::ostream& out, std::istream& header);

}  // namespace velmor
