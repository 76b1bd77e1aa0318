// An array whose length is known when it is made: in place up to N elements, so that short inputs
// cost no allocation, else in a block. Like HeldArray it may stay alive across host calls.
#pragma once
#include <cstddef>
#include <span>

#include "runtime/memory.h"

namespace vstring {

template <typename T, std::size_t N>
class SmallArray {
 public:
  // Makes room for n elements, which are not initialised; false when memory fails.
  [[nodiscard]] bool allocate(std::size_t n) {
    size_ = n;
    return n <= N || block_.resize(n);
  }

  std::span<T> view() { return {size_ <= N ? few_ : block_.data(), size_}; }
  void free() { block_.free(); }

 private:
  std::size_t size_ = 0;
  T few_[N];
  HeldArray<T> block_;
};

}  // namespace vstring
