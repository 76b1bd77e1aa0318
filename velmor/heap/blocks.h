// Memory for objects: blocks of whole words.
//
// Small blocks are carved from chunks and kept in a free list per size, so that a loop of calls
// runs in the same few cache lines; large ones come from operator new. With VELMOR_EXACT_BLOCKS
// (for sanitizers and valgrind) every block is one of operator new's: an overrun shows.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace velmor {

class Blocks {
 public:
  // A block of `n` >= 2 words, not initialised. Throws std::bad_alloc.
  std::uint64_t* take(std::size_t n);
  // Scribbles over the block and takes it back.
  void give_back(std::uint64_t* block, std::size_t n) noexcept;

 private:
#ifdef VELMOR_EXACT_BLOCKS
  static constexpr std::size_t kLargestSmall = 0;
#else
  static constexpr std::size_t kLargestSmall = 64;
#endif
  static constexpr std::size_t kChunk = 8192;  // words

  std::array<std::uint64_t*, kLargestSmall + 1> free_{};  // linked through word 1
  std::vector<std::unique_ptr<std::uint64_t[]>> chunks_;
  std::size_t used_ = kChunk;  // words of the last chunk
};

}  // namespace velmor
