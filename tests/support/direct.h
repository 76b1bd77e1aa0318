// Commands called straight through the runtime, without the host's language: for loops over many
// texts. Works on the driver's session, so allocations are still watched there.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "heap/velmor_runtime.h"
#include "host/vstring.h"
#include "support/check.h"

namespace vstring_test {

// The printed result, or "error: ...", of a command called with these values, which may be
// collected afterwards.
std::string call(VelmorCommand command, const std::vector<HostObject>& arguments);

// The object itself; 0 when the command raised.
HostObject result_of(VelmorCommand command, const std::vector<HostObject>& arguments);

// The same with texts; and read as what the command is known to give.
std::string answer(VelmorCommand command, const std::vector<std::string>& texts);
std::int64_t integer(VelmorCommand command, const std::vector<std::string>& texts);
bool truth(VelmorCommand command, const std::vector<std::string>& texts);
std::string text(VelmorCommand command, const std::vector<std::string>& texts);
std::vector<std::string> texts(VelmorCommand command, const std::vector<std::string>& texts);
std::vector<std::int64_t> integers(VelmorCommand command, const std::vector<std::string>& texts);

// Values as the host prints them.
inline std::string printed(std::size_t value) { return std::to_string(value); }
inline std::string printed(bool value) { return value ? "true" : "false"; }
inline std::string printed(const std::string& text) { return quoted(text); }
template <typename T>
std::string printed(const std::vector<T>& list) {
  std::string text = "[";
  for (const T& value : list) text += (text.size() > 1 ? ", " : "") + printed(value);
  return text + "]";
}

// A sequence of values as commands give it; none is an empty list.
template <typename T>
std::string printed_sequence(const std::vector<T>& values) {
  const std::string list = printed(values);
  return values.empty() ? list : list.substr(1, list.size() - 2);
}

// All words over `alphabet` of at most `longest` letters, the empty one first.
std::vector<std::string> all_words(std::string_view alphabet, std::size_t longest);

}  // namespace vstring_test
