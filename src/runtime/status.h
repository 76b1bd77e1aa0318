// How an algorithm says that it could not answer. Algorithms never raise: an entry point does, in
// its own words.
#pragma once
#include <type_traits>

namespace vstring {

enum class Status : unsigned char {
  ok,
  out_of_memory,
  refused,       // the input has no answer; the entry point says in which words
  not_prepared,  // out of memory for tables made ahead, which is told in words of its own
};

template <typename T>
class [[nodiscard]] Result {
  static_assert(std::is_trivially_destructible_v<T>, "results outlive a host's longjmp");

 public:
  Result(T value) : value_(value) {}                    // NOLINT: converts on return
  Result(Status status) : value_(), status_(status) {}  // NOLINT: converts on return
  bool ok() const { return status_ == Status::ok; }
  Status status() const { return status_; }
  const T& operator*() const { return value_; }
  const T* operator->() const { return &value_; }

 private:
  T value_;
  Status status_ = Status::ok;
};

}  // namespace vstring
