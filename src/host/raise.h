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

}  // namespace vstring
