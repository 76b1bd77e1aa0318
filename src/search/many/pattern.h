// The patterns of a list, and where they occur.
#pragma once
#include <cstddef>
#include <cstdint>

#include "host/vstring.h"

namespace vstring::search {

struct Pattern {
  const char* text;
  std::uint32_t length;
  std::int32_t number;
};

inline Pattern pattern_of(const VstringOutput& output) {
  return {output.text, static_cast<std::uint32_t>(output.length), output.number};
}

struct PatternMatch {
  std::size_t position;  // 0-based offset of the first byte
  std::int32_t pattern;  // 1-based place of the pattern in its list; 0: no match
};

}  // namespace vstring::search
