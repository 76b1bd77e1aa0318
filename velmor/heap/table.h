// The host function table: what the library may ask of this host.
#pragma once
#include "host/vstring.h"

namespace velmor {

// One table serves every heap: operations work on the current one. A listed position does its job,
// save those of rtables, which no command uses; the others report a fault of the library.
const HostTable& table();

}  // namespace velmor
