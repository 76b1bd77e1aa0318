// Reading host objects in place.
//
// A span or text obtained here stays good for the length of the call that was given the object: the
// host keeps the arguments of a call alive and does not move objects.
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "host/vstring.h"

namespace vstring {

inline constexpr std::size_t kTextWord = 3;

inline bool is_immediate(HostObject object) { return (object & 1) != 0; }

inline const std::uint64_t* words_of(HostObject object) {
  return reinterpret_cast<const std::uint64_t*>(object);
}

inline std::size_t word_count(HostObject object) {
  return static_cast<std::uint32_t>(*words_of(object));
}

// The tag; an immediate integer counts as an integer object of its sign.
inline int tag_of(HostObject object) {
  if (is_immediate(object)) {
    return static_cast<std::intptr_t>(object) < 0 ? HOST_TAG_NEGATIVE : HOST_TAG_NON_NEGATIVE;
  }
  return static_cast<int>((*words_of(object) >> 32) & 0x3f);
}

inline bool is_string(HostObject object) { return tag_of(object) == HOST_TAG_STRING; }
inline bool is_name(HostObject object) { return tag_of(object) == HOST_TAG_NAME; }
inline bool is_range(HostObject object) { return tag_of(object) == HOST_TAG_RANGE; }
inline bool is_list(HostObject object) { return tag_of(object) == HOST_TAG_LIST; }
inline bool is_set(HostObject object) { return tag_of(object) == HOST_TAG_SET; }
inline bool is_equation(HostObject object) { return tag_of(object) == HOST_TAG_EQUATION; }

// A string or a name: what counts as a string wherever one is asked for.
inline bool is_text(HostObject object) { return is_string(object) || is_name(object); }

// How many bytes of a word stand before its first zero byte. Requires one. (A. Mycroft's test, of
// 1987: the lowest bit that it sets is exact.)
inline std::size_t bytes_before_zero(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const std::uint64_t zeros = (word - kOnes) & ~word & (kOnes << 7);
  return static_cast<std::size_t>(std::countr_zero(zeros)) / 8;
}

// Bytes of a string or name. The length follows from the header and the last word, which holds the
// terminator, without a scan of the text; whatever stands behind the terminator does not count.
// Only where the host may have rounded the object's size up is the text scanned.
inline Bytes text_of(HostObject object) {
  const std::uint64_t* const words = words_of(object);
  const std::size_t n = word_count(object);
  if (n <= kTextWord) return bytes_of("");
  const auto* const text = reinterpret_cast<const Byte*>(words + kTextWord);
  const std::size_t before = 8 * (n - kTextWord - 1);
  const std::size_t last = bytes_before_zero(words[n - 1]);
  if (last == 0 && before > 0 && text[before - 1] == 0) [[unlikely]]
    return bytes_of(chars(text));
  return {text, before + last};
}

// The same text as the host stores it, NUL-terminated.
inline const char* c_text_of(HostObject object) {
  return reinterpret_cast<const char*>(words_of(object) + kTextWord);
}

// Word i of an object that refers to others.
inline HostObject word_of(HostObject object, std::size_t i) { return words_of(object)[i]; }

inline HostObject left_side(HostObject pair) { return word_of(pair, 1); }
inline HostObject right_side(HostObject pair) { return word_of(pair, 2); }

// The elements of an expression sequence, a list or a set.
class Elements {
 public:
  Elements() = default;
  static Elements of_sequence(HostObject sequence) { return Elements(sequence); }
  static Elements of_list(HostObject list) { return Elements(word_of(list, 1)); }

  std::size_t size() const { return count_; }
  bool empty() const { return count_ == 0; }
  HostObject operator[](std::size_t i) const { return first_[i]; }  // 0-based
  const std::uint64_t* begin() const { return first_; }
  const std::uint64_t* end() const { return first_ + count_; }

 private:
  explicit Elements(HostObject sequence)
      : first_(words_of(sequence) + 1), count_(word_count(sequence) - 1) {}
  const std::uint64_t* first_ = nullptr;
  std::size_t count_ = 0;
};

// Whether every element is a string or a name.
inline bool all_texts(Elements elements) {
  for (const HostObject element : elements) {
    if (!is_text(element)) return false;
  }
  return true;
}

}  // namespace vstring
