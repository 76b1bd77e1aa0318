#include "big_integer.h"

#include <gmp.h>

#include <algorithm>
#include <span>
#include <stdexcept>

namespace velmor {
namespace {

class Number {
 public:
  Number() { mpz_init(value_); }
  ~Number() { mpz_clear(value_); }
  Number(const Number&) = delete;
  Number& operator=(const Number&) = delete;
  mpz_t& operator*() { return value_; }

 private:
  mpz_t value_;
};

std::optional<std::int64_t> to_int64(std::span<const std::uint64_t> limbs, bool negative) {
  if (limbs.empty()) return 0;
  const std::uint64_t limit = std::uint64_t{INT64_MAX} + (negative ? 1 : 0);
  if (limbs.size() > 1 || limbs[0] > limit) return std::nullopt;
  return static_cast<std::int64_t>(negative ? 0 - limbs[0] : limbs[0]);
}

std::span<const std::uint64_t> limbs_of(HostObject integer) {
  return {words(integer) + 1, length_in_words(integer) - 1};
}

}  // namespace

Magnitude parse_decimal(std::string_view decimal) {
  Magnitude result;
  result.negative = decimal.starts_with('-');
  const std::string digits(decimal.substr(result.negative ? 1 : 0));
  const bool valid =
      !digits.empty() && std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
  if (!valid) throw std::invalid_argument("not an integer");
  Number number;
  mpz_set_str(*number, digits.c_str(), 10);
  result.limbs.resize(mpz_size(*number));
  mpz_export(result.limbs.data(), nullptr, -1, sizeof(std::uint64_t), 0, 0, *number);
  return result;
}

std::optional<std::int64_t> to_int64(const Magnitude& magnitude) {
  return to_int64(std::span(magnitude.limbs), magnitude.negative);
}

std::optional<std::int64_t> to_int64(HostObject integer) {
  if (is_immediate(integer)) return immediate_value(integer);
  return to_int64(limbs_of(integer), tag_of(integer) == HOST_TAG_NEGATIVE);
}

std::string to_decimal(HostObject integer) {
  if (is_immediate(integer)) return std::to_string(immediate_value(integer));
  const auto limbs = limbs_of(integer);
  Number number;
  mpz_import(*number, limbs.size(), -1, sizeof(std::uint64_t), 0, 0, limbs.data());
  std::string digits(mpz_sizeinbase(*number, 10) + 2, '\0');  // room for a terminator too
  mpz_get_str(digits.data(), 10, *number);
  digits.resize(digits.find('\0'));
  return tag_of(integer) == HOST_TAG_NEGATIVE ? "-" + digits : digits;
}

}  // namespace velmor
