// Characters of UTF-8 (RFC 3629).
#pragma once
#include <cstddef>
#include <string_view>

namespace velmor {

// The length of the valid sequence of several bytes that the text begins with; 0 when it begins
// with none.
std::size_t utf8_sequence(std::string_view text);

// The same, but 0 also for characters that a terminal does not show as they are: controls, and
// those that set the direction or end the line.
std::size_t utf8_shown(std::string_view text);

// Whether a byte is no first byte of a character.
inline bool continues_character(char c) { return (static_cast<unsigned char>(c) & 0xc0U) == 0x80; }

// The number of characters of a text, each byte that belongs to none counting as one.
std::size_t utf8_count(std::string_view text);

}  // namespace velmor
