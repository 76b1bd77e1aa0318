// Random texts and permutations, drawn from a generator.
#pragma once
#include <array>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "random/generator.h"

namespace vstring::random {

// Fills `out` with the non-zero bytes of the stream, those of each number from the least
// significant on. Of the last number the bytes too many are lost, and even an empty `out` takes
// one number.
void draw_bytes(Generator& generator, MutableBytes out);

// Fills `out` with the characters 0 and 1: the bits of bytes, each from its lowest on.
void draw_bits(Generator& generator, MutableBytes out);

// A set of bytes as 1 for its members and 0 for all others.
using Members = std::array<std::uint32_t, 256>;

// The bytes that pass `test` and can be drawn: zero ends a text, and no class holds bytes beyond
// ASCII.
Members drawable(CharTest test);

// Fills `out` with bytes of `members`, a set that is not empty, by rejection.
void draw_members(Generator& generator, const Members& members, MutableBytes out);

// Makes `out` a permutation of 0 .. n-1. (R. A. Fisher and F. Yates, 1938; remainders of 32-bit
// numbers make some orders likelier than others by no more than n / 2^32.)
void draw_permutation(Generator& generator, std::span<std::uint32_t> out);

}  // namespace vstring::random
