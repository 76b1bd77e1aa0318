// Working memory of one call.
//
// The host may leave an entry point at any host call (longjmp, a C++ exception), so no destructor
// can be relied on there. Every working block is therefore linked into one list, and the next
// outermost call releases what an abandoned one left behind: nothing leaks whatever the host does.
//
// HeldArray owns nothing and may stay alive across host calls; Buffer is the same with a
// destructor, for the inside of algorithms. What outlives a call (dictionaries, compiled patterns,
// pools) does not belong here and comes from malloc directly.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

#include "runtime/status.h"

namespace vstring {

namespace memory {

// Resizes a block to `bytes` bytes, aligned to 16, the new ones uninitialised; null, and the block
// untouched, on failure. A null block is allocated.
void* reallocate(void* block, std::size_t bytes);
void release(void* block);

// Called first by every entry point: releases the blocks of abandoned calls. A call made while the
// host evaluates something for another one (see Evaluation) leaves that one's blocks alone.
void begin_call();

// Brackets a HostEvalProc: blocks held before `begin` belong to the caller, who is still alive.
struct Evaluation {
  const void* boundary;  // newest block held by the call that waits
  const void* frame;     // an address in its stack frame; null when no evaluation is going on
};
Evaluation begin_evaluation(const void* frame);
void end_evaluation(Evaluation outer);

}  // namespace memory

// A growing array whose block is remembered as described above. Copies share the block: pass it by
// reference. Elements are not initialised.
template <typename T>
class HeldArray {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

 public:
  T* data() { return data_; }
  const T* data() const { return data_; }
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  T& operator[](std::size_t i) { return data_[i]; }
  const T& operator[](std::size_t i) const { return data_[i]; }
  T& back() { return data_[size_ - 1]; }
  T* begin() { return data_; }
  T* end() { return data_ + size_; }
  const T* begin() const { return data_; }
  const T* end() const { return data_ + size_; }
  std::span<const T> view() const { return {data_, size_}; }

  // False, and nothing changed, when memory fails.
  [[nodiscard]] bool reserve(std::size_t n) {
    if (n <= capacity_ && data_ != nullptr) return true;
    if (n > SIZE_MAX / sizeof(T)) return false;
    void* const grown = memory::reallocate(data_, n * sizeof(T));
    if (grown == nullptr) return false;
    data_ = static_cast<T*>(grown);
    capacity_ = n;
    return true;
  }

  [[nodiscard]] bool resize(std::size_t n) {
    if (!reserve(n)) return false;
    size_ = n;
    return true;
  }

  [[nodiscard]] bool resize_zeroed(std::size_t n) {
    if (!resize(n)) return false;
    std::memset(static_cast<void*>(data_), 0, n * sizeof(T));
    return true;
  }

  [[nodiscard]] bool push_back(const T& value) {
    const T kept = value;  // `value` may live in the block that moves
    if (size_ == capacity_ && !reserve(capacity_ == 0 ? kFirstCapacity : 2 * capacity_))
      return false;
    data_[size_++] = kept;
    return true;
  }

  // `values` must not lie in this array.
  [[nodiscard]] bool append(std::span<const T> values) {
    if (values.size() > SIZE_MAX / 2 - size_) return false;
    const std::size_t n = size_ + values.size();
    if (n > capacity_ && !reserve(n > 2 * capacity_ ? n : 2 * capacity_)) return false;
    if (!values.empty()) std::memcpy(data_ + size_, values.data(), values.size_bytes());
    size_ = n;
    return true;
  }

  void pop_back() { --size_; }
  void clear() { size_ = 0; }

  void free() {
    memory::release(data_);
    data_ = nullptr;
    size_ = capacity_ = 0;
  }

 private:
  static constexpr std::size_t kFirstCapacity = 32;
  T* data_ = nullptr;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

// The same, releasing its block at the end of the scope. Never alive across a host call.
template <typename T>
class Buffer : public HeldArray<T> {
 public:
  Buffer() = default;
  Buffer(const Buffer&) = delete;
  Buffer& operator=(const Buffer&) = delete;
  ~Buffer() { this->free(); }
};

}  // namespace vstring
