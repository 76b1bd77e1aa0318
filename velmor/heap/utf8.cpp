#include "utf8.h"

#include <cstdint>

namespace velmor {
namespace {

struct Character {
  std::size_t length = 0;
  std::uint32_t code = 0;
};

Character character_of(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (text.empty()) return {};
  struct Form {
    unsigned mask, lead;
    std::uint32_t least;
  };
  constexpr Form kForms[] = {{0xe0, 0xc0, 0x80}, {0xf0, 0xe0, 0x800}, {0xf8, 0xf0, 0x10000}};
  for (std::size_t extra = 1; extra <= 3; ++extra) {
    const Form& form = kForms[extra - 1];
    if ((byte(0) & form.mask) != form.lead) continue;
    if (text.size() <= extra) return {};
    std::uint32_t code = byte(0) & ~form.mask;
    for (std::size_t i = 1; i <= extra; ++i) {
      if (!continues_character(text[i])) return {};
      code = code << 6U | (byte(i) & 0x3fU);
    }
    const bool surrogate = code >= 0xd800 && code < 0xe000;
    if (code < form.least || code > 0x10ffff || surrogate) return {};
    return {extra + 1, code};
  }
  return {};
}

}  // namespace

std::size_t utf8_sequence(std::string_view text) { return character_of(text).length; }

std::size_t utf8_shown(std::string_view text) {
  const auto [length, code] = character_of(text);
  const bool control = code < 0xa0;
  const bool layout = (code >= 0x200b && code <= 0x200f) || (code >= 0x2028 && code <= 0x202e) ||
                      (code >= 0x2066 && code <= 0x2069) || code == 0xfeff;
  return control || layout ? 0 : length;
}

std::size_t utf8_count(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) {
    const std::size_t length = utf8_sequence(text.substr(at));
    at += length > 0 ? length : 1;
  }
  return count;
}

}  // namespace velmor
