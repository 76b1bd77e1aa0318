// Working memory of one call, and whatever else a call holds.
//
// The host may leave an entry point at any host call (longjmp, a C++ exception), so no destructor
// can be relied on there. Every working block is therefore linked into one list, and the next
// outermost call releases what an abandoned one left behind: nothing leaks whatever the host does.
// The host may also call commands while it carries out an operation for one that waits (from a
// finaliser, or a procedure that it evaluates). The two are told apart by the stack, which grows
// downwards: what a waiting call holds, it holds above the frame of the call that begins.
//
// HeldArray owns nothing and may stay alive across host calls; Buffer is the same with a
// destructor, for the inside of algorithms. Both live on the stack. What outlives a call
// (dictionaries, compiled patterns, pools) does not belong here and comes from malloc directly.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

#include "runtime/status.h"

namespace vstring {

namespace memory {

// What a call holds. Blocks have one of these in front.
struct Held {
  Held* older;
  Held* newer;
  const void* holder;  // an address in the frame that holds it
  // What is to be done with it when the call has been abandoned, for the host table of another one.
  // Null: it is a block to free.
  void (*let_go)(Held* held, const void* host);
};

// All that is held, and an address in the frame of the call whose result the host is copying out of
// the scratch buffer. Both are null nearly always: a call that begins asks for no more than that.
struct State {
  Held* newest;
  const void* scratch_holder;
};
extern State state;

// Resizes a block; null, and the block untouched, on failure. A null block is allocated. Blocks
// are uninitialised and aligned to 16.
void* reallocate(void* block, std::size_t bytes, const void* holder);
void release(void* block);

// Something other than a block, in storage of the caller's. A call that is not abandoned puts it
// down itself.
void hold(Held* held, const void* holder, void (*let_go)(Held* held, const void* host));
void put_down(Held* held);

// Lets go of what abandoned calls held. `frame_end` is where the frame of the call that begins ends
// towards its caller.
void let_go_of_abandoned(const void* host, const void* frame_end);

// Frees every block, and nothing else: for when the library is unloaded.
void free_blocks();

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
    void* const grown = memory::reallocate(data_, n * sizeof(T), this);
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

  // Room for `n` elements more, which push_within then adds.
  [[nodiscard]] bool reserve_more(std::size_t n) {
    if (n > SIZE_MAX / 2 - size_) return false;
    const std::size_t wanted = size_ + n;
    return wanted <= capacity_ || reserve(wanted > 2 * capacity_ ? wanted : 2 * capacity_);
  }
  void push_within(const T& value) { data_[size_++] = value; }

  // `values` must not lie in this array.
  [[nodiscard]] bool append(std::span<const T> values) {
    if (!reserve_more(values.size())) return false;
    if (!values.empty()) std::memcpy(data_ + size_, values.data(), values.size_bytes());
    size_ += values.size();
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
