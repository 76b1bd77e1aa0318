// Morphisms of words: each letter is replaced by its image, which may be empty.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::words {

class Morphism {
 public:
  // Letters without an image are kept.
  bool has_image(Byte letter) const { return is_given_[letter]; }
  void set_image(Byte letter, Bytes image) {
    images_[letter] = image;
    is_given_[letter] = true;
  }

  // Replaces `image` by the image of `word` under the n-th power. With h the morphism, h(word),
  // ..., h^n(word) are no longer than `limit`, else Status::refused; their lengths are found from
  // the numbers of letters before anything is written. O(256 n) time, and that of writing those
  // words; it ends early with a word that is its own image.
  Status apply(Bytes word, std::size_t n, std::size_t limit, HeldArray<Byte>& image) const;

 private:
  using Counts = std::array<std::uint64_t, 256>;

  std::size_t image_length(Byte letter) const {
    return is_given_[letter] ? images_[letter].size() : 1;
  }
  std::uint64_t length_of_image(const Counts& counts, std::uint64_t limit) const;
  Status check_lengths(Bytes word, std::size_t n, std::size_t limit) const;

  std::array<Bytes, 256> images_ = {};
  std::array<bool, 256> is_given_ = {};
};

}  // namespace vstring::words
