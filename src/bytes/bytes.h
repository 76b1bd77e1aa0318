// Byte spans: the texts that every algorithm works on.
//
// Bytes are unsigned and counted; nothing inside the library relies on a terminator, except where a
// public C routine takes a plain text.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace vstring {

using Byte = unsigned char;
using Bytes = std::span<const Byte>;
using MutableBytes = std::span<Byte>;

// In place of an offset: there is none.
inline constexpr std::size_t npos = SIZE_MAX;

// The bytes of a NUL-terminated text, terminator excluded.
inline Bytes bytes_of(const char* text) {
  return {reinterpret_cast<const Byte*>(text), std::strlen(text)};
}

inline const char* chars(const Byte* bytes) { return reinterpret_cast<const char*>(bytes); }
inline const char* chars(Bytes bytes) { return chars(bytes.data()); }

inline bool equal(Bytes a, Bytes b) {
  return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size()) == 0);
}

inline bool equal(Bytes a, const char* text) { return equal(a, bytes_of(text)); }

// Copies `from` to the start of `to` and returns what is left of `to`. Empty spans may be null.
inline MutableBytes copy_into(MutableBytes to, Bytes from) {
  if (!from.empty()) std::memcpy(to.data(), from.data(), from.size());
  return to.subspan(from.size());
}

}  // namespace vstring
