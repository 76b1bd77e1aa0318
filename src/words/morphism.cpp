#include "words/morphism.h"

#include <cstring>
#include <utility>

namespace vstring::words {
namespace {

// How often a letter stands in an image.
struct Share {
  Byte letter;
  std::uint64_t count;
};

// The letters of one image after the other.
struct Shares {
  Buffer<Share> all;
  std::array<std::size_t, 257> starts = {};
};

}  // namespace

// Above `limit` any number above it will do.
std::uint64_t Morphism::length_of_image(const Counts& counts, std::uint64_t limit) const {
  std::uint64_t length = 0;
  for (unsigned c = 0; c < 256 && length <= limit; ++c) {
    if (counts[c] == 0) continue;
    const std::uint64_t image = image_length(static_cast<Byte>(c));
    if (image > limit) return image;
    std::uint64_t product = 0;
    if (__builtin_mul_overflow(counts[c], image, &product)) return UINT64_MAX;
    if (__builtin_add_overflow(length, product, &length)) return UINT64_MAX;
  }
  return length;
}

Status Morphism::check_lengths(Bytes word, std::size_t n, std::size_t limit) const {
  Counts counts = {};
  for (const Byte c : word) ++counts[c];
  // The letters of each image that may be met, told once: an image that is met is as long as what
  // it has of different letters, so going over these costs no more than writing it.
  Shares shares;
  for (unsigned c = 0; c < 256; ++c) {
    shares.starts[c] = shares.all.size();
    if (!is_given_[c]) {
      if (!shares.all.push_back({static_cast<Byte>(c), 1})) return Status::out_of_memory;
      continue;
    }
    Counts in_image = {};
    for (const Byte d : images_[c]) ++in_image[d];
    for (unsigned d = 0; d < 256; ++d) {
      if (in_image[d] == 0) continue;
      if (!shares.all.push_back({static_cast<Byte>(d), in_image[d]})) return Status::out_of_memory;
    }
  }
  shares.starts[256] = shares.all.size();

  for (std::size_t i = 0; i < n; ++i) {
    if (length_of_image(counts, limit) > limit) return Status::refused;
    Counts next = {};
    for (unsigned c = 0; c < 256; ++c) {
      if (counts[c] == 0) continue;
      for (std::size_t k = shares.starts[c]; k < shares.starts[c + 1]; ++k) {
        next[shares.all[k].letter] += counts[c] * shares.all[k].count;
      }
    }
    if (next == counts) break;  // and so are all that follow
    counts = next;
  }
  return Status::ok;
}

Status Morphism::apply(Bytes word, std::size_t n, std::size_t limit, HeldArray<Byte>& image) const {
  const Status status = check_lengths(word, n, limit);
  if (status != Status::ok) return status;
  Buffer<Byte> before;
  image.clear();
  if (!image.append(word)) return Status::out_of_memory;
  for (std::size_t i = 0; i < n; ++i) {
    std::swap(static_cast<HeldArray<Byte>&>(before), image);
    std::size_t length = 0;
    for (const Byte c : before) length += image_length(c);
    if (!image.resize(length)) return Status::out_of_memory;
    MutableBytes rest(image.data(), length);
    for (const Byte c : before) {
      rest = copy_into(rest, is_given_[c] ? images_[c] : Bytes(&c, 1));
    }
    if (equal(before.view(), image.view())) break;
  }
  return Status::ok;
}

}  // namespace vstring::words
