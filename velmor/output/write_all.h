// Writing to a file descriptor to the end.
#pragma once
#include <string_view>

namespace velmor {

// Writes all of `bytes`, waiting where a reader is slow. False, with errno, when that fails.
bool write_all(int descriptor, std::string_view bytes);

}  // namespace velmor
