// Columns of edit distances that go through a text side by side, each through a part of its own: a
// column alone spends most of its time waiting for one operation's result before the next.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring {

inline constexpr std::size_t kEditLanes = 4;

struct EditPattern {
  const std::uint64_t* equal;  // for each byte, the rows (bytes/edit_column.h) where it stands
  std::size_t rows;            // 1 to 64
  std::size_t k;               // edits, less than rows
};

// Lane i starts afresh at byte `64 * words * i` of the text, passes over `lead` bytes and goes on
// for 64 * words more. Bit j of ends[kEditLanes * w + i] tells whether behind byte 64 w + j of
// those the last row is within k.
void find_edit_ends(const EditPattern& pattern, const Byte* text, std::size_t lead,
                    std::size_t words, std::uint64_t* ends);

}  // namespace vstring
