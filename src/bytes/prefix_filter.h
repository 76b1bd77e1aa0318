// Where one of a few short prefixes may stand, each a sequence of up to five sets of bytes.
//
// A filter: what it stops at has yet to be compared, but it stops wherever a prefix stands. The
// prefixes are told apart by eight bits, and each byte of the text is looked up by its two halves,
// 32 places at a time: the "Teddy" of the Hyperscan library (X. Wang and others, "Hyperscan: a fast
// multi-pattern regex matcher", 2019).
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/byte_set.h"
#include "bytes/bytes.h"

namespace vstring {

class PrefixFilter {
 public:
  static constexpr std::size_t kMaxLength = 5;
  static constexpr std::size_t kUsualLength = 3;  // what pays where prefixes are sets of bytes
  static constexpr std::size_t kPrefixes = 8;     // several may share a number below this one

  // Adds `set` to what prefix number `prefix` may have as its byte `i`.
  void add(std::size_t prefix, std::size_t i, const ByteSet& set);

  // The first place at `at` or later where a prefix of `length` bytes may stand, or npos. Requires
  // `length` to be from 2 to kMaxLength and all bytes up to it to have been added.
  std::size_t find(std::size_t length, Bytes text, std::size_t at) const;

  struct Halves {
    Byte low[16];
    Byte high[16];
  };

 private:
  Halves halves_[kMaxLength] = {};  // by i and half byte: a bit for each prefix
};

}  // namespace vstring
