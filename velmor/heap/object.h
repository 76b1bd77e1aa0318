// Layout of host objects.
//
// A word is an immediate integer when its lowest bit is set: its value is the word shifted right by
// one. Any other word points to an object, whose first word is the header: length in words in bits
// 0 .. 31, tag in bits 32 .. 37; bits 61 to 63 are the heap's own.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "host/vstring.h"

namespace velmor {

// Tags of this host's own, besides those that vstring.h lists.
constexpr int kTagFloat = 0x03;
constexpr int kTagQuoted = 0x12;     // guards word 1 from evaluation
constexpr int kTagProcedure = 0x2c;  // word 1 is its text, a string; word 2 its evaluator's data

constexpr std::uint64_t kMarkBit = std::uint64_t{1} << 63;   // the collector has reached it
constexpr std::uint64_t kBoundBit = std::uint64_t{1} << 62;  // a name that has had a slot filled
constexpr std::uint64_t kProtectedBit = std::uint64_t{1} << 61;  // a name not to be assigned
constexpr std::size_t kMaxLength = 0xffffffff;
constexpr std::int64_t kMinImmediate = INT64_MIN / 2;
constexpr std::int64_t kMaxImmediate = INT64_MAX / 2;

inline bool is_immediate(HostObject object) { return (object & 1) != 0; }
inline std::int64_t immediate_value(HostObject object) {
  return static_cast<std::int64_t>(object) >> 1;
}
inline HostObject immediate(std::int64_t value) {
  return (static_cast<std::uint64_t>(value) << 1) | 1;
}

// The words of an object that is no immediate.
inline std::uint64_t* words(HostObject object) { return reinterpret_cast<std::uint64_t*>(object); }
inline HostObject object_of(std::uint64_t* words) { return reinterpret_cast<HostObject>(words); }
inline std::size_t length_in_words(HostObject object) { return words(object)[0] & kMaxLength; }
constexpr std::uint64_t header(int tag, std::size_t length) {
  return (static_cast<std::uint64_t>(tag) << 32) | length;
}

// The tag; 0 for the null word, the tag of its sign for an immediate.
inline int tag_of(HostObject object) {
  if (is_immediate(object))
    return static_cast<std::int64_t>(object) < 0 ? HOST_TAG_NEGATIVE : HOST_TAG_NON_NEGATIVE;
  return object == 0 ? 0 : static_cast<int>((words(object)[0] >> 32) & 0x3f);
}

inline bool is_integer(HostObject object) {
  const int tag = tag_of(object);
  return tag == HOST_TAG_NEGATIVE || tag == HOST_TAG_NON_NEGATIVE;
}
inline bool is_integer32(HostObject object) {
  return is_immediate(object) && immediate_value(object) == std::int32_t(immediate_value(object));
}
inline bool is_text(HostObject object) {
  const int tag = tag_of(object);
  return tag == HOST_TAG_STRING || tag == HOST_TAG_NAME;
}

// Text of a string or name. A name's words 1 and 2 are its slots, 0 while empty.
constexpr std::size_t kValueWord = 1;
constexpr std::size_t kAttributeWord = 2;
constexpr std::size_t kTextWord = 3;
inline const char* text_of(HostObject object) {
  return reinterpret_cast<const char*>(words(object) + kTextWord);
}
std::size_t text_length(HostObject object);
inline std::string_view text_view(HostObject object) {
  return {text_of(object), text_length(object)};
}

// The value of a name, or that of the name which is its value, and so on; the last of these names
// when that has none. 0 when they stand for each other: say so with kDefinedByItself and the name.
HostObject value_of_name(HostObject name);
inline constexpr const char* kDefinedByItself = "name defined by itself: ";

// The words of a compound object that refer to others; the elements, for a sequence. Empty for
// the rest, names included.
std::span<HostObject> references(HostObject object);

// The sequence that holds the elements of a sequence, list or set; 0 for anything else.
HostObject elements_of(HostObject object);
inline std::size_t sequence_size(HostObject sequence) { return length_in_words(sequence) - 1; }

}  // namespace velmor
