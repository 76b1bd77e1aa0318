// Calendar records as text, by the conversions of my_strftime.
#pragma once
#include <cstddef>
#include <ctime>

namespace vstring::time {

// Writes the text and its terminator, or as much of them as fits into `size` bytes; returns the
// length of both, so that a buffer of that size holds them. Linear. Sets `y2k`.
std::size_t format_time(char* out, std::size_t size, const char* format, const std::tm& time);

}  // namespace vstring::time
