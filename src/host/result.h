// Building results.
//
// A text result is assembled in the scratch buffer when it fits there, else in one block that is
// released as soon as the host has made its string; should the host raise while it does, the next
// call releases the block (runtime/memory.h).
#pragma once
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <type_traits>

#include "bytes/bytes.h"
#include "host/args.h"
#include "runtime/growing_text.h"
#include "runtime/memory.h"
#include "runtime/scratch.h"

namespace vstring {

// The host's copy of a text in the scratch buffer. A command that the host calls before it has
// copied builds its result elsewhere; `holder` lies in the frame of this one.
inline HostObject copy_of_scratch(const HostTable* host, const void* holder) {
  memory::state.scratch_holder = holder;
  const HostObject string = host->HostNewString(chars(scratch));
  memory::state.scratch_holder = nullptr;
  return string;
}

class TextResult {
 public:
  // Room for `length` bytes and a terminator: in the scratch buffer when they are no more than
  // `scratch_limit`. Raises "out of memory".
  TextResult(const Args& args, std::size_t length, std::size_t scratch_limit = kScratchLimit)
      : host_(args.host()), text_(scratch), length_(length) {
    if (length >= scratch_limit || !scratch_is_free()) [[unlikely]]
      take_block(args);
  }

  MutableBytes bytes() const { return {text_, length_}; }
  // The host string of what bytes() holds, or of its first `length` bytes. Ends the result.
  HostObject object() { return object(length_); }
  HostObject object(std::size_t length) {
    text_[length] = '\0';
    return block_.empty() ? copy_of_scratch(host_, this) : copy_of_block();
  }
  // The same, or argument `position` of the call itself when that has the same bytes.
  HostObject object_or_argument(const Args& args, int position, std::size_t length);
  HostObject object_or_argument(const Args& args, int position) {
    return object_or_argument(args, position, length_);
  }

 private:
  void take_block(const Args& args);
  HostObject copy_of_block();

  const HostTable* host_;
  Byte* text_;
  std::size_t length_;
  HeldArray<Byte> block_;
};
static_assert(std::is_trivially_destructible_v<TextResult>);

// A new string of `length` bytes that `write` fills in, where little can make much: refused when it
// would be too long.
template <typename Write>
HostObject new_long_text(const Args& args, std::uint64_t length, Write write) {
  args.limit_length(length);
  TextResult text(args, length);
  write(text.bytes());
  return text.object();
}

// An empty text that grows out of the scratch buffer.
inline GrowingText scratch_text() {
  return scratch_is_free() ? GrowingText(scratch, kScratchLimit) : GrowingText();
}

// A new host string with these bytes.
HostObject new_string(const Args& args, Bytes bytes);
inline HostObject new_letter(const Args& args, Byte c) { return new_string(args, {&c, 1}); }
// The same, leaving alone what the scratch buffer holds: a short one is built on the stack.
HostObject new_string_aside(const Args& args, Bytes bytes);
// Of a text that began in `scratch_text`, or anywhere else. Ends it.
HostObject new_string(const Args& args, GrowingText& text);
inline HostObject empty_string(const Args& args) { return args.host()->HostNewString(""); }

inline HostObject new_integer(const Args& args, std::size_t value) {
  return args.host()->HostNewInteger(static_cast<std::int64_t>(value));
}
// An offset as the host counts, from 1; npos becomes 0.
inline HostObject new_position(const Args& args, std::size_t offset) {
  static_assert(npos + 1 == 0);
  return new_integer(args, offset + 1);
}
inline HostObject new_boolean(const Args& args, bool value) {
  return args.host()->HostToBoolean(value ? 1 : 0);
}

// A new truth value, float or integer, as the value itself is. Raises when there is none.
template <typename Value>
HostObject new_value(const Args& args, const Value& value) {
  if constexpr (std::is_same_v<Value, bool>) {
    return new_boolean(args, value);
  } else if constexpr (std::is_floating_point_v<Value>) {
    return args.host()->HostNewFloat(value);
  } else {
    return args.host()->HostNewInteger(static_cast<std::int64_t>(value));
  }
}
template <typename Value>
HostObject new_value(const Args& args, const Result<Value>& value) {
  args.require(value.status());
  return new_value(args, *value);
}

// A new list whose element i (0-based) is make(i).
template <typename Make>
HostObject new_list(const HostTable* host, std::size_t n, Make make) {
  const HostObject list = host->HostNewList(static_cast<std::int64_t>(n));
  for (std::size_t i = 0; i < n; ++i) {
    host->HostListAssign(list, static_cast<std::int64_t>(i + 1), make(i));
  }
  return list;
}
template <typename Make>
HostObject new_list(const Args& args, std::size_t n, Make make) {
  return new_list(args.host(), n, make);
}

// A new list of these objects.
inline HostObject new_list_of(const Args& args, std::initializer_list<HostObject> objects) {
  return new_list(args, objects.size(), [&](std::size_t i) { return objects.begin()[i]; });
}

// A new list of new strings. Ends `texts`.
HostObject new_text_list(const Args& args, HeldArray<Bytes>& texts);

// A new equation.
inline HostObject new_equation(const Args& args, HostObject left, HostObject right) {
  return args.host()->HostNewExpr("=", left, right);
}

// A new expression sequence whose element i (0-based) is make(i).
template <typename Make>
HostObject new_sequence(const HostTable* host, std::size_t n, Make make) {
  const HostObject sequence = host->HostNewExpSeq(static_cast<std::int64_t>(n));
  for (std::size_t i = 0; i < n; ++i) {
    const HostObject element = make(i);
    reinterpret_cast<HostObject*>(sequence)[i + 1] = element;
  }
  return sequence;
}
template <typename Make>
HostObject new_sequence(const Args& args, std::size_t n, Make make) {
  return new_sequence(args.host(), n, make);
}

inline HostObject empty_list(const HostTable* host) { return host->HostNewList(0); }
inline HostObject empty_list(const Args& args) { return empty_list(args.host()); }

// What a search found: an expression sequence of make(element), or the empty list when it found
// nothing. Ends `found`.
template <typename T, typename Make>
HostObject new_findings(const Args& args, HeldArray<T>& found, Make make) {
  const HostObject result =
      found.empty()
          ? empty_list(args)
          : new_sequence(args, found.size(), [&](std::size_t i) { return make(found[i]); });
  found.free();
  return result;
}

// A new list of two integers, such as a position and what was found there.
inline HostObject new_pair(const HostTable* host, std::int64_t first, std::int64_t second) {
  const std::int64_t pair[2] = {first, second};
  return new_list(host, 2, [&](std::size_t i) { return host->HostNewInteger(pair[i]); });
}

}  // namespace vstring
