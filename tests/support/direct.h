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
#include "support/session.h"

namespace vstring_test {

// An argument: a text, an integer (signed), or an object of the session's heap (unsigned).
class Value {
 public:
  Value(const std::string& text)
      : object_(velmor_string_n(session().heap(), text.data(), text.size())) {}
  Value(const char* text) : Value(std::string(text)) {}
  Value(std::int64_t integer) : object_(velmor_integer(session().heap(), integer)) {}
  Value(int integer) : Value(std::int64_t{integer}) {}
  Value(HostObject object) : object_(object) {}
  operator HostObject() const { return object_; }

 private:
  HostObject object_;
};
using Values = std::vector<Value>;

HostObject name(const std::string& text);
HostObject list(const Values& elements);
HostObject equation(const Value& left, const Value& right);

// What a command gives, printed, or "error: ..."; the values may be collected afterwards.
std::string call(VelmorCommand command, const Values& arguments);
// The object itself; 0 when the command raised.
HostObject result_of(VelmorCommand command, const Values& arguments);
// Read as what the command is known to give: a text, true or false, a list of texts. The program
// ends when the command raises.
std::string text(VelmorCommand command, const Values& arguments);
bool truth(VelmorCommand command, const Values& arguments);
std::vector<std::string> texts(VelmorCommand command, const Values& arguments);

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
