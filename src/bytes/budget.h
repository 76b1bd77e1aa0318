// What a short cut may cost before a slower but surer way takes over.
//
// A short cut (a filter ahead of a search, a walk from candidate to candidate) is paid for what it
// has saved and charged for what it took in vain, both in bytes of plain scanning. Used up, it is
// given up for good: so the whole stays within a constant times the surer way, whatever the input.
#pragma once
#include <cstddef>
#include <cstdint>

namespace vstring {

class Budget {
 public:
  // What may be lost before anything has been earned.
  constexpr explicit Budget(std::size_t free) : left_(static_cast<std::int64_t>(free)) {}

  void earn(std::size_t saved) { left_ += static_cast<std::int64_t>(saved); }
  void spend(std::size_t cost) { left_ -= static_cast<std::int64_t>(cost); }
  bool is_used_up() const { return left_ < 0; }

 private:
  std::int64_t left_;
};

}  // namespace vstring
