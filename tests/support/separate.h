#pragma once
#include <string>
#include <vector>

namespace vstring_test {

// The parts of a text, with `between` between them.
inline std::vector<std::string> separate(const std::string& text,
                                         const std::string& between = "; ") {
  std::vector<std::string> parts;
  for (std::size_t at = 0, end = 0; end != text.npos && !text.empty(); at = end + between.size()) {
    end = text.find(between, at);
    parts.push_back(text.substr(at, end - at));
  }
  return parts;
}

}  // namespace vstring_test
