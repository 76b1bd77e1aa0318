// Stable sorting by merging. Each item is compared at most once a round, as the one that is taken:
// texts of N bytes in all cost O(N log n) comparisons of bytes, whatever they are.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <span>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::words {

// Unsigned, a proper prefix first.
inline bool text_less(Bytes a, Bytes b) {
  const std::size_t n = std::min(a.size(), b.size());
  const int order = n == 0 ? 0 : std::memcmp(a.data(), b.data(), n);
  return order != 0 ? order < 0 : a.size() < b.size();
}

// As much memory again; fails only for want of it.
template <typename T, typename Less>
Status merge_sort(std::span<T> items, Less less) {
  const std::size_t n = items.size();
  Buffer<T> other;
  if (!other.resize(n)) return Status::out_of_memory;
  T* from = items.data();
  T* to = other.data();
  for (std::size_t width = 1; width < n; width *= 2) {
    for (std::size_t start = 0; start < n; start += 2 * width) {
      const std::size_t middle = std::min(start + width, n);
      const std::size_t end = std::min(start + 2 * width, n);
      std::merge(from + start, from + middle, from + middle, from + end, to + start, less);
    }
    std::swap(from, to);
  }
  if (from != items.data()) std::copy_n(from, n, items.data());
  return Status::ok;
}

}  // namespace vstring::words
