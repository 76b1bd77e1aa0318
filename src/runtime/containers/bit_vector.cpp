// Bit vector over 32-bit words. One word more than bits / 32 is allocated, so that the last partial
// word exists; bv_count leaves it out, and callers choose sizes with that in mind.
#include <bit>
#include <cstdlib>

#include "host/vstring.h"

namespace {

bool in_range(const VstringBitVector* bits, uint32_t i) { return i / 32 <= bits->word_count; }
uint32_t mask(uint32_t i) { return uint32_t{1} << (i % 32); }

}  // namespace

VstringBitVector* bv_init(VstringBitVector* bits, uint32_t count) {
  if (bits == nullptr) return nullptr;
  auto* const words = static_cast<uint32_t*>(std::calloc(count / 32 + 1, sizeof(uint32_t)));
  if (words == nullptr) return nullptr;
  *bits = {count / 32, count, words};
  return bits;
}

void bv_set(VstringBitVector* bits, uint32_t i) {
  if (in_range(bits, i)) bits->words[i / 32] |= mask(i);
}

int bv_get(const VstringBitVector* bits, uint32_t i) {
  return in_range(bits, i) && (bits->words[i / 32] & mask(i)) != 0 ? 1 : 0;
}

void bv_reset(VstringBitVector* bits, uint32_t i) {
  if (in_range(bits, i)) bits->words[i / 32] &= ~mask(i);
}

uint32_t bv_count(const VstringBitVector* bits) {
  int total = 0;
  for (uint32_t w = 0; w < bits->word_count; ++w) total += std::popcount(bits->words[w]);
  return static_cast<uint32_t>(total);
}
