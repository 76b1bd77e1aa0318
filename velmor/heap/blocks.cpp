#include "blocks.h"

#include <algorithm>

namespace velmor {
namespace {

// Read as a header, this has a tag that no kind of object uses.
constexpr std::uint64_t kScribble = 0xdbdbdbdbdbdbdbdb;

}  // namespace

std::uint64_t* Blocks::take(std::size_t n) {
  if (n > kLargestSmall) return new std::uint64_t[n];
  if (std::uint64_t* block = free_[n]) {
    free_[n] = reinterpret_cast<std::uint64_t*>(block[1]);
    return block;
  }
  if (n > kChunk - used_) {
    chunks_.push_back(std::make_unique_for_overwrite<std::uint64_t[]>(kChunk));
    used_ = 0;
  }
  std::uint64_t* block = chunks_.back().get() + used_;
  used_ += n;
  return block;
}

void Blocks::give_back(std::uint64_t* block, std::size_t n) noexcept {
  std::fill_n(block, n, kScribble);
  if (n > kLargestSmall) {
    delete[] block;
    return;
  }
  block[1] = reinterpret_cast<std::uint64_t>(free_[n]);
  free_[n] = block;
}

}  // namespace velmor
