// Message formats: the placeholders of the host's error messages.
//
// %1 to %9 insert an argument, %-1 to %-9 an integer argument as an ordinal, %0 all arguments. A
// percent sign right behind another one, or before anything else, stands for itself.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/growing_text.h"

namespace vstring {

struct FormatPiece {
  enum Kind : unsigned char { literal, argument, ordinal, all_arguments } kind;
  int number;  // of an argument or ordinal, 1 to 9
  Bytes text;  // of a literal
};

// The piece that begins at offset `at` of the format, which is moved behind it. Requires
// at < format.size(). A literal reaches up to the next placeholder.
FormatPiece next_piece(Bytes format, std::size_t& at);

// Appends "1st", "2nd", "3rd", "4th", ...: the last decimal digit alone chooses the ending, so that
// messages read as they do in the host (11st). False when memory fails.
[[nodiscard]] bool append_ordinal(GrowingText& out, std::int32_t value);

[[nodiscard]] bool append_integer(GrowingText& out, std::int32_t value);

}  // namespace vstring
