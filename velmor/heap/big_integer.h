// Integers of any size, by GMP.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "object.h"

namespace velmor {

struct Magnitude {
  std::vector<std::uint64_t> limbs;  // least significant first, the last one not 0
  bool negative = false;
};

// Throws std::invalid_argument unless the text is an optional minus sign and decimal digits.
Magnitude parse_decimal(std::string_view decimal);

// Empty when it does not fit.
std::optional<std::int64_t> to_int64(const Magnitude& magnitude);
std::optional<std::int64_t> to_int64(HostObject integer);

// Decimal digits of an integer object.
std::string to_decimal(HostObject integer);

}  // namespace velmor
