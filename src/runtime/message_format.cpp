#include "runtime/message_format.h"

#include <charconv>

namespace vstring {
namespace {

bool is_argument_number(Bytes format, std::size_t at) {
  return at < format.size() && format[at] >= '1' && format[at] <= '9';
}

// Length of the placeholder at offset `at`; 0 when there is none.
std::size_t placeholder_length(Bytes format, std::size_t at) {
  if (format[at] != '%' || (at > 0 && format[at - 1] == '%')) return 0;
  if (at + 1 == format.size()) return 0;
  if (format[at + 1] == '0' || is_argument_number(format, at + 1)) return 2;
  return format[at + 1] == '-' && is_argument_number(format, at + 2) ? 3 : 0;
}

}  // namespace

FormatPiece next_piece(Bytes format, std::size_t& at) {
  const std::size_t first = at;
  const std::size_t length = placeholder_length(format, first);
  if (length == 0) {
    do ++at;
    while (at < format.size() && placeholder_length(format, at) == 0);
    return {FormatPiece::literal, 0, format.subspan(first, at - first)};
  }
  at += length;
  const int number = format[at - 1] - '0';
  if (number == 0) return {FormatPiece::all_arguments, 0, {}};
  return {length == 2 ? FormatPiece::argument : FormatPiece::ordinal, number, {}};
}

bool append_integer(GrowingText& out, std::int32_t value) {
  char digits[16];
  const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  return out.append(
      {reinterpret_cast<const Byte*>(digits), static_cast<std::size_t>(end - digits)});
}

bool append_ordinal(GrowingText& out, std::int32_t value) {
  static constexpr const char* kEndings[] = {"th", "st", "nd", "rd"};
  const int last_digit = value < 0 ? -(value % 10) : value % 10;
  return append_integer(out, value) &&
         out.append(bytes_of(kEndings[last_digit < 4 ? last_digit : 0]));
}

}  // namespace vstring
