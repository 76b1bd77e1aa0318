// A stack that begins in place, so that shallow ones cost no allocation, and goes on in a block.
#pragma once
#include <cstddef>
#include <cstring>

#include "runtime/memory.h"

namespace vstring {

template <typename T, std::size_t N>
class SmallStack {
 public:
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  T& back() { return elements_[size_ - 1]; }

  // False, and nothing changed, when memory fails.
  [[nodiscard]] bool push_back(const T& value) {
    if (size_ == room_ && !grow()) return false;
    elements_[size_++] = value;
    return true;
  }
  void pop_back() { --size_; }
  void clear() { size_ = 0; }

 private:
  bool grow() {
    const bool is_first = block_.empty();
    if (!block_.resize(2 * room_)) return false;
    if (is_first) std::memcpy(block_.data(), few_, sizeof few_);
    elements_ = block_.data();
    room_ *= 2;
    return true;
  }

  T few_[N];
  T* elements_ = few_;
  std::size_t size_ = 0;
  std::size_t room_ = N;
  Buffer<T> block_;
};

}  // namespace vstring
