#include "search/structure/palindrome.h"

#include <algorithm>

#include "runtime/memory.h"

namespace vstring::search {

bool is_palindrome(Bytes text) {
  for (std::size_t i = 0, j = text.size(); i + 1 < j; ++i) {
    if (text[i] != text[--j]) return false;
  }
  return true;
}

void palindrome_lengths(Bytes text, std::span<std::uint32_t> lengths) {
  // Around centre k lie the factors text[i, end) with i + end = k + 1. Of the palindromes so far
  // the one around `widest` ends last, at `reach`.
  std::size_t widest = 0;
  std::size_t reach = 0;
  for (std::size_t k = 0; k < lengths.size(); ++k) {
    std::size_t end = k / 2 + 1;
    if (end < reach) {
      // What lies inside of that palindrome mirrors its first half.
      const std::size_t inside = 2 * reach - 1 - k;
      const std::size_t mirrored = lengths[2 * widest - k];
      if (mirrored < inside) {
        lengths[k] = static_cast<std::uint32_t>(mirrored);
        continue;
      }
      end = reach;
    }
    std::size_t i = k + 1 - end;
    for (; i > 0 && end < text.size() && text[i - 1] == text[end]; --i) ++end;
    lengths[k] = static_cast<std::uint32_t>(end - i);
    if (end > reach) {
      reach = end;
      widest = k;
    }
  }
}

Result<Bytes> longest_palindrome(Bytes text) {
  if (is_palindrome(text)) return text;
  Buffer<std::uint32_t> lengths;
  if (text.size() > UINT32_MAX || !lengths.resize(centre_count(text))) {
    return Status::out_of_memory;
  }
  palindrome_lengths(text, {lengths.data(), lengths.size()});
  const std::uint32_t* const longest = std::max_element(lengths.begin(), lengths.end());
  const auto centre = static_cast<std::size_t>(longest - lengths.begin());
  return text.subspan(palindrome_start(centre, *longest), *longest);
}

}  // namespace vstring::search
