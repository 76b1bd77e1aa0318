// Substitution by definition.
#pragma once
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace vstring_test {

// Byte by byte into a buffer of the estimated size.
inline std::string naive_substx(const std::string& text, const std::string& pattern,
                                const std::string& replacement) {
  std::vector<std::size_t> found;
  for (std::size_t at = text.find(pattern); !pattern.empty() && at != std::string::npos;
       at = text.find(pattern, at + 1)) {
    found.push_back(at);
  }
  if (found.size() % 65536 == 0) return text;
  const auto estimate =
      static_cast<std::int64_t>(text.size()) + 1 +
      static_cast<std::int64_t>(found.size()) * (static_cast<std::int64_t>(replacement.size()) -
                                                 static_cast<std::int64_t>(pattern.size()));
  std::string out;
  auto next = found.begin();
  for (std::size_t i = 0; i < text.size();) {
    while (next != found.end() && *next < i) ++next;
    const bool is_replaced = next != found.end() && *next == i;
    out += is_replaced ? replacement : text.substr(i, 1);
    i += is_replaced ? pattern.size() : 1;
  }
  return out.substr(0, static_cast<std::size_t>(std::max<std::int64_t>(estimate, 0)));
}

}  // namespace vstring_test
