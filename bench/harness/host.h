// Commands called through the reference host, and results made by the same host operations, so that
// ours and a peer hand over the same thing.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "velmor_runtime.h"

namespace bench {

// One run of a job. 0 when it cannot be done.
using Work = std::function<HostObject()>;

VelmorHeap* heap();
const HostTable* table();

// Arguments; they live until the job ends.
HostObject argument(std::string_view text);
HostObject argument(const char* text);
HostObject argument(std::int64_t value);
HostObject argument(const std::vector<std::string>& texts);
HostObject name(const char* text);
HostObject equation(HostObject left, HostObject right);
void release_arguments();

// A call of a command, which must not be refused.
Work call(VelmorCommand command, const std::vector<HostObject>& arguments);

// The text of an argument, where it lies.
inline std::string_view text_of(HostObject text) {
  return {velmor_text(text), velmor_text_length(text)};
}

// Results.
inline HostObject result(bool answer) { return table()->HostToBoolean(answer ? 1 : 0); }
inline HostObject result(std::int64_t value) { return table()->HostNewInteger(value); }
inline HostObject result(std::size_t value) { return result(static_cast<std::int64_t>(value)); }
inline HostObject result(int value) { return result(std::int64_t{value}); }
inline HostObject result(const std::string& text) { return table()->HostNewString(text.c_str()); }

// A list of what `make(i)` gives for i from 0 to n - 1.
template <typename Make>
HostObject list(std::size_t n, Make make) {
  const HostObject made = table()->HostNewList(static_cast<std::int64_t>(n));
  for (std::size_t i = 0; i < n; ++i) {
    table()->HostListAssign(made, static_cast<std::int64_t>(i + 1), make(i));
  }
  return made;
}

// The same as an expression sequence; the empty list when there is nothing.
template <typename Make>
HostObject sequence(std::size_t n, Make make) {
  if (n == 0) return table()->HostNewList(0);
  const HostObject made = table()->HostNewExpSeq(static_cast<std::int64_t>(n));
  auto* const words = reinterpret_cast<HostObject*>(made);
  for (std::size_t i = 0; i < n; ++i) words[i + 1] = make(i);
  return made;
}

inline HostObject pair(std::size_t first, std::size_t second) {
  return list(2, [&](std::size_t i) { return result(i == 0 ? first : second); });
}

// How the host prints an object: what answers are compared by.
std::string printed(HostObject object);
// The same with the elements of a list or sequence sorted.
std::string printed_in_any_order(HostObject object);

}  // namespace bench
