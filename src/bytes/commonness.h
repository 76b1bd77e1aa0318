// How common a byte is in ordinary text: a search looks for the rarest ones first.
#pragma once
#include <array>

#include "bytes/byte_set.h"
#include "bytes/bytes.h"

namespace vstring {

// From 255, the most common, downwards: letters by their frequency in English prose, then what is
// common in tables and programs. All that is not listed counts as rare, 0.
inline constexpr std::array<Byte, 256> kCommonness = [] {
  constexpr const char* kCommonFirst =
      " etaoinsrhldcumfpgwybvk,.\nTSAIMCBPHWDRELFNGOxjqzUVJKYXQZ'\"-()0123456789;:\t"
      "/_=*<>{}[]#+&!?|%$@~^`\\";
  std::array<Byte, 256> commonness = {};
  Byte value = 255;
  for (const char* c = kCommonFirst; *c != '\0'; ++c) {
    commonness[static_cast<Byte>(*c)] = value--;
  }
  return commonness;
}();

// The share of a text's bytes that are of a set, roughly: the n-th most common byte is taken to
// stand at every sixth n-th place (after G. K. Zipf's law).
inline double share(const ByteSet& set) {
  double share = 0;
  set.for_each([&](Byte c) { share += 1 / (6.0 * (256 - kCommonness[c])); });
  return share;
}

}  // namespace vstring
