// Objects as text, in host syntax, and messages with objects in them.
#pragma once
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "object.h"

namespace velmor {

// "abc", x, `two words`, -5, 2.5, [1, 2], {1, 2}, a .. b, x = 1, f(x, y); a sequence is its
// elements with commas between, NULL nothing. Bytes below 32 and from 127 print as \n, \t, ... or
// \ooo. Any depth of nesting is safe.
enum class Escapes { kAllBytes, kInvalidUtf8 };  // which bytes from 127 print so
std::string print(HostObject object, Escapes escapes = Escapes::kAllBytes);

// The greatest d of the placeholders %d and %-d in `message`, d from 1 to 3; 0 when it has none.
// A percent sign after a percent sign is no placeholder.
std::size_t placeholder_count(std::string_view message);

// `message` with %1 .. %3 replaced by the printed arguments, and %-1 .. %-3 by ordinals ("2nd").
// The suffix goes by the last digit alone (11st), as hosts have always printed it.
std::string format_message(std::string_view message, std::span<const HostObject> arguments);

}  // namespace velmor
