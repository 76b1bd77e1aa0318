// The library's pseudo-random generator.
//
// A multiplicative lagged Fibonacci sequence of odd numbers (G. Marsaglia, "A current view of
// random number generators", 1985), read as x[n] = x[n-29] x[n-95] in a ring of 128 words filled
// from the end, added to a multiply-with-carry sequence (G. Marsaglia, 1994). The ring is filled
// from four further multiply-with-carry generators. Nothing of it is secret: whoever knows the
// seed knows the stream, which is the point of seeding.
#pragma once
#include <array>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring::random {

class Generator {
 public:
  // Starts the stream of `seed`. Sixteen bits of it matter: the low half of each byte. The place in
  // the ring, its last word and the bytes not yet handed out by next_byte stay as they are.
  void seed(std::uint32_t seed);

  // The numbers of the stream, that of seed 0 when none was given. What changes with each of them
  // is kept apart, in registers, until the run ends: texts written meanwhile cannot change it.
  class Run {
   public:
    explicit Run(Generator& generator) : of_(generator) {
      if (!of_.seeded_) of_.seed(0);
      position_ = of_.position_;
      carry_ = of_.carry_;
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() {
      of_.position_ = position_;
      of_.carry_ = carry_;
    }

    std::uint32_t next() {
      const std::uint32_t i = --position_;
      const std::uint32_t product = of_.ring_[(i + 33) % 128] * of_.ring_[(i + 99) % 128];
      of_.ring_[i % 128] = product;
      carry_ = advance(carry_, 30903);
      return product + carry_;
    }

   private:
    Generator& of_;
    std::uint32_t position_;
    std::uint32_t carry_;
  };

  // The next number of it.
  std::uint32_t next() { return Run(*this).next(); }

  // The next byte of the stream, each number giving four of them, most significant first.
  Byte next_byte();
  // Whether next_byte still has some of the last number to hand out.
  bool has_bytes() const { return byte_count_ > 0; }

 private:
  // Multiply with carry.
  static constexpr std::uint32_t advance(std::uint32_t x, std::uint32_t multiplier) {
    return (x >> 16) + (x & 0xffff) * multiplier;
  }

  std::array<std::uint32_t, 128> ring_ = {};
  std::uint32_t position_ = 0;
  std::uint32_t carry_ = 0;
  bool seeded_ = false;
  std::uint32_t bytes_ = 0;  // what next_byte has not handed out, from the top
  std::uint32_t byte_count_ = 0;
};

// The one generator of the process.
extern Generator process_generator;

}  // namespace vstring::random
