// Where a segment of a wildcard pattern may match: places worth trying.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/budget.h"
#include "bytes/byte_scan.h"
#include "bytes/bytes.h"
#include "bytes/find_probes.h"
#include "bytes/prefix_filter.h"
#include "search/wildcard/segment.h"

namespace vstring::search {

// Two literal bytes or more are looked for side by side; otherwise up to three elements on end,
// those that take the fewest bytes. Elements far from the start are left out.
class Places {
 public:
  // Requires an element or more, and as many bytes of text.
  Places(const Segment& segment, Bytes text);

  // The next place to try, or npos: the segment matches nowhere between.
  std::size_t next();

 private:
  void choose_probes(const Segment& segment);
  void choose_elements(const Segment& segment);
  std::size_t next_of_elements();

  Bytes text_;
  std::size_t end_;  // behind the last place
  std::size_t at_ = 0;
  // By literal bytes: `hits_` are the places of the block at `base_` that are left.
  Probes probes_;
  Budget ahead_ = kLookAhead;
  std::size_t base_ = 0;
  std::uint64_t hits_ = 0;
  // By elements on end, the first of them at `offset_` of the segment.
  PrefixFilter filter_;
  ByteScan scan_;  // for a single one
  std::size_t length_ = 0;
  std::size_t offset_ = 0;
};

}  // namespace vstring::search
