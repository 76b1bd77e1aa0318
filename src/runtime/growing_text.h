// A text under construction whose length shows only in the end: in a buffer that its owner lends,
// so that most texts cost no allocation, then in a block that doubles. Like HeldArray it may stay
// alive across host calls.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstring>

#include "bytes/bytes.h"
#include "bytes/copy.h"
#include "runtime/memory.h"

namespace vstring {

class GrowingText {
 public:
  // Without a first buffer, and with one of `size` bytes, the terminator included.
  GrowingText() : GrowingText(nothing_, 1) {}
  GrowingText(Byte* buffer, std::size_t size) : text_(buffer), room_(size) {}

  std::size_t size() const { return size_; }
  Byte back() const { return text_[size_ - 1]; }
  bool has_room(std::size_t n) const { return n < room_ - size_; }
  bool is_in(const Byte* buffer) const { return text_ == buffer; }

  // False, and nothing changed, when memory fails.
  [[nodiscard]] bool push_back(Byte c, std::size_t count = 1) {
    if (!make_room(count)) return false;
    std::memset(text_ + size_, c, count);
    size_ += count;
    return true;
  }
  // `bytes` must not lie in this text.
  [[nodiscard]] bool append(Bytes bytes) {
    if (!make_room(bytes.size())) return false;
    if (!bytes.empty()) std::memcpy(text_ + size_, bytes.data(), bytes.size());
    size_ += bytes.size();
    return true;
  }

  // The same of from[at, at + n), in fewer steps when these are few.
  [[nodiscard]] bool append_part(Bytes from, std::size_t at, std::size_t n) {
    if (!make_room(n)) return false;
    copy_part({text_ + size_, room_ - size_}, from, at, n);
    size_ += n;
    return true;
  }
  // The same of a text that fills whole words of eight bytes, as the host's texts do.
  [[nodiscard]] bool append_words(Bytes bytes) {
    if (!make_room(bytes.size() + sizeof(std::uint64_t))) return false;
    copy_words(text_ + size_, bytes);
    size_ += bytes.size();
    return true;
  }
  [[nodiscard]] bool reserve_more(std::size_t n) { return make_room(n); }

  // The text with its terminator, for which there is always room.
  const char* terminated() { return chars(view().data()); }
  Bytes view() {
    text_[size_] = '\0';
    return {text_, size_};
  }

  void free() { block_.free(); }

 private:
  static constexpr std::size_t kFirstBlock = 8192;

  bool make_room(std::size_t more) { return has_room(more) || grow(more); }

  bool grow(std::size_t more) {
    if (more > SIZE_MAX / 4 - size_) return false;
    const std::size_t room = std::max({2 * room_, size_ + more + 1, kFirstBlock});
    const bool is_first = block_.empty();
    if (!block_.resize(room)) return false;
    if (is_first && size_ > 0) std::memcpy(block_.data(), text_, size_);
    text_ = block_.data();
    room_ = room;
    return true;
  }

  static inline Byte nothing_[1];  // always a terminator

  Byte* text_;
  std::size_t size_ = 0;
  std::size_t room_;
  HeldArray<Byte> block_;
};

}  // namespace vstring
