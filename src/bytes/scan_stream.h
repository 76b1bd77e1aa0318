// Where runs of a set's members begin and end, for whoever asks for one place after the other: the
// answers for 64 bytes at a time are kept as bits, so that short runs cost a few instructions each.
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>

#include "bytes/byte_scan.h"
#include "bytes/bytes.h"

namespace vstring {

class ScanStream {
 public:
  ScanStream(const ByteScan& scan, Bytes text) : scan_(scan), text_(text) {}

  // Offset of the first member at `at` or later; the text's length when there is none.
  std::size_t find(std::size_t at) { return find(true, at); }
  // The same for a byte that is not a member.
  std::size_t find_other(std::size_t at) { return find(false, at); }

 private:
  static constexpr std::size_t kWindow = 64;

  std::size_t find(bool member, std::size_t at) {
    const std::size_t place = at - first_;
    if (place < kWindow) {
      const std::uint64_t hits = (member ? members_ : others_) >> place;
      if (hits != 0) return at + static_cast<std::size_t>(std::countr_zero(hits));
      at = first_ + kWindow;
    }
    return at < text_.size() ? find_far(member, at) : text_.size();
  }
  std::size_t find_far(bool member, std::size_t at);

  const ByteScan& scan_;
  Bytes text_;
  std::size_t first_ = npos / 2;  // of the window; what lies behind the text is in neither
  std::uint64_t members_ = 0;
  std::uint64_t others_ = 0;
};

}  // namespace vstring
