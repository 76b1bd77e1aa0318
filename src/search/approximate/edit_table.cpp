#include "search/approximate/edit_table.h"

namespace vstring::search {

void BlockTable::start_block(std::size_t b, std::int64_t above) {
  blocks_[b] = {{}, above + static_cast<std::int64_t>(height(b))};
}

EditChange BlockTable::advance_block(std::size_t b, const std::uint64_t* equal, EditChange above) {
  Block& block = blocks_[b];
  const EditChange change = block.column.advance(equal[b], above, height(b) - 1);
  block.bottom += change.value();
  return change;
}

Status BlockTable::prepare(Bytes pattern, std::size_t k) {
  m_ = pattern.size();
  k_ = static_cast<std::int64_t>(k);
  count_ = (m_ - 1) / kRows + 1;
  alphabet_ = Alphabet(pattern);
  // At most 256 words for 64 bytes of pattern: the product fits.
  if (!masks_.resize_zeroed(alphabet_.size() * count_) || !blocks_.resize(count_)) {
    return Status::out_of_memory;
  }
  for (std::size_t i = 0; i < m_; ++i) {
    masks_[alphabet_.number(pattern[i]) * count_ + i / kRows] |= std::uint64_t{1} << i % kRows;
  }
  restart();
  return Status::ok;
}

void BlockTable::restart() {
  // Ahead of the text row i holds i, so rows 1 to k are within k.
  last_ = k_ == 0 ? 0 : std::min(count_ - 1, static_cast<std::size_t>(k_ - 1) / kRows);
  for (std::size_t b = 0; b <= last_; ++b) {
    start_block(b, static_cast<std::int64_t>(b * kRows));
  }
}

bool BlockTable::advance_by(Byte c) {
  const std::uint64_t* const equal = masks(c);
  EditChange change;
  for (std::size_t b = 0; b <= last_; ++b) change = advance_block(b, equal, change);

  // Invariant: a block whose upper neighbour ends below k is kept up. So a cell within k can only
  // enter a block that is not by a match next to a k, or under a value that has just become k - 1.
  const std::int64_t before = blocks_[last_].bottom - change.value();
  if (last_ + 1 < count_ && before <= k_ && ((equal[last_ + 1] & 1) != 0 || change.fell != 0)) {
    ++last_;
    // Its cells were above k, by how much does not matter.
    start_block(last_, before);
    advance_block(last_, equal, change);
  } else {
    // Rows differ by one at most: when the last is k + height, all are above k.
    while (last_ > 0 && blocks_[last_].bottom >= k_ + static_cast<std::int64_t>(height(last_))) {
      --last_;
    }
  }
  return last_ + 1 == count_ && blocks_[last_].bottom <= k_;
}

}  // namespace vstring::search
