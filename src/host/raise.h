// Raising an error through the host, with the objects that its placeholders %1 to %3 show.
#pragma once
#include <type_traits>

#include "host/vstring.h"

namespace vstring {

template <typename... Objects>
[[noreturn]] void raise(const HostTable* host, const char* message, Objects... objects) {
  static_assert(sizeof...(objects) <= 3 && (std::is_same_v<Objects, HostObject> && ...));
  host->HostError(message, objects...);
  __builtin_trap();  // should a host return all the same
}

// Reports a condition that must hold whatever the arguments are. The file that the host's users
// see is that of the library's common routines.
[[noreturn]] inline void raise_assertion(const HostTable* host, int line, const char* condition) {
  const HostObject file = host->HostNewString("vstring-misc");
  const HostObject number = host->HostNewInteger(line);
  raise(host, "assertion failed [%1:%2]: %3", file, number, host->HostNewString(condition));
}

}  // namespace vstring
