// Fields of a record.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmor {

// The first `most` fields of `text`, into `fields`: the stretches between occurrences of
// `separator`, or without one the longest runs of bytes that are neither blank, tab nor newline.
void split_fields(std::string_view text, const std::optional<std::string>& separator,
                  std::size_t most, std::vector<std::string_view>& fields);

// What a separator written on the command line stands for: C's escapes \a \b \f \n \r \t \v \\,
// \ooo and \xhh are understood. Throws std::invalid_argument when that is empty, holds a zero byte
// or an unknown escape.
std::string unescaped_separator(const std::string& written);

}  // namespace velmor
