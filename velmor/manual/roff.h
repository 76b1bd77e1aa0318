// Text for manual pages.
#pragma once
#include <string>
#include <string_view>

namespace velmor::roff {

// Text as roff shows it, byte for byte.
std::string plain(std::string_view text);
std::string bold(std::string_view text);
std::string italic(std::string_view text);

// A paragraph whose lines stay as they are.
std::string verbatim(std::string_view text);

}  // namespace velmor::roff
