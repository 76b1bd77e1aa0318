// A pattern prepared for exact search.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "bytes/find_probes.h"

namespace vstring::search {

class Needle {
 public:
  Needle() = default;  // the empty pattern
  // For texts of about `text_length` bytes: in a long text it pays to look for rare bytes in more
  // of the pattern. The pattern must outlive the needle.
  Needle(Bytes pattern, std::size_t text_length);
  // Of a pattern of which only some bytes are known, which stand at these places, in order. All
  // places are below Probes::kMost. There is nothing to compare: pattern() is empty.
  Needle(Bytes known, std::span<const std::size_t> places);

  Bytes pattern() const { return pattern_; }
  std::size_t size() const { return size_; }
  const Probes& probes() const { return probes_; }

  // How much is left to compare where all probes stand.
  bool is_all_probes() const { return size() <= Probes::kMost; }
  bool is_two_words() const { return size() <= 2 * sizeof(std::uint64_t); }

 private:
  Bytes pattern_;
  std::size_t size_ = 0;
  Probes probes_;
};

}  // namespace vstring::search
