#include "search/approximate/approximate.h"

#include <algorithm>

#include "search/approximate/edit_column.h"
#include "search/exact/exact.h"

namespace vstring::search {
namespace {

// Every scan below hands the ends to report(end) in increasing order and stops when it says false.

// Numbers the distinct bytes of a pattern from 1 on, so that tables by byte are as small as the
// pattern's alphabet. All other bytes are number 0.
class Alphabet {
 public:
  explicit Alphabet(Bytes pattern) {
    for (const Byte c : pattern) {
      if (number_[c] == 0) number_[c] = static_cast<Byte>(size_++);
    }
  }
  std::size_t size() const { return size_; }
  std::size_t number(Byte c) const { return number_[c]; }

 private:
  // Texts hold no byte 0, so at most 255 numbers are given out.
  std::size_t size_ = 1;
  Byte number_[256] = {};
};

// A pattern of 1 to 64 bytes: for each byte value, the set of positions where it stands.
class WordMasks {
 public:
  explicit WordMasks(Bytes pattern) : alphabet_(pattern) {
    std::fill_n(masks_, alphabet_.size(), 0);
    for (std::size_t i = 0; i < pattern.size(); ++i) {
      masks_[alphabet_.number(pattern[i])] |= std::uint64_t{1} << i;
    }
  }
  std::uint64_t operator[](Byte c) const { return masks_[alphabet_.number(c)]; }

 private:
  Alphabet alphabet_;
  std::uint64_t masks_[kColumnRows + 1];
};

// The pattern that the bit-parallel model really looks for; longer ones are built in `storage`.
Bytes bit_parallel_pattern(Bytes pattern, Byte (&storage)[kColumnRows]) {
  constexpr std::size_t kMaskBits = 32;
  if (pattern.size() <= kMaskBits) return pattern;
  const std::size_t length = (pattern.size() - 1) % kColumnRows + 1;
  copy_into(storage, pattern.first(kMaskBits));
  std::fill(storage + kMaskBits, storage + kColumnRows, pattern[kMaskBits - 1]);
  return {storage, length};
}

// The automaton from its zero start. Requires 1 <= k < m <= 64. False when stopped.
template <typename Report>
bool scan_automaton(Bytes pattern, const WordMasks& masks, Bytes text, std::size_t k,
                    Report report) {
  std::uint64_t state[kColumnRows] = {};  // bit i of state[d]: pattern[0, i] ends here in d edits
  const std::size_t accept = pattern.size() - 1;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::uint64_t equal = masks[text[i]];
    std::uint64_t before = state[0];  // state[d - 1] ahead of this byte
    state[0] = (before << 1 | 1) & equal;
    for (std::size_t d = 1; d <= k; ++d) {
      const std::uint64_t matched = (state[d] << 1 | 1) & equal;
      const std::uint64_t inserted = before;
      const std::uint64_t deleted = state[d - 1] << 1;
      const std::uint64_t substituted = before << 1 | 1;
      before = state[d];
      state[d] = matched | inserted | deleted | substituted;
    }
    if ((state[k] >> accept & 1) != 0 && !report(i + 1)) return false;
  }
  return true;
}

// The table for a pattern of at most 64 bytes. Requires k < m.
class WordTable {
 public:
  WordTable(const WordMasks& masks, std::size_t m, std::size_t k)
      : masks_(masks), m_(static_cast<std::int64_t>(m)), k_(static_cast<std::int64_t>(k)) {
    restart();
  }

  // Back to the column ahead of a text.
  void restart() {
    column_ = {};
    distance_ = m_;
  }

  // Moves on by one byte. True when the table's last row is within k.
  bool advance_by(Byte c) {
    distance_ += advance(column_, masks_[c], 0, static_cast<unsigned>(m_ - 1));
    return distance_ <= k_;
  }

 private:
  const WordMasks& masks_;
  std::int64_t m_;
  std::int64_t k_;
  EditColumn column_;
  std::int64_t distance_ = 0;
};

// The table for a pattern of any length, by blocks of 64 rows, of which only those above the last
// cell within k are kept up.
class BlockTable {
 public:
  Status prepare(Bytes pattern, std::size_t k);

  // As those of WordTable.
  void restart();
  bool advance_by(Byte c);

 private:
  struct Block {
    EditColumn column;
    std::int64_t bottom;  // value of its last row
  };

  std::size_t height(std::size_t b) const {
    return b + 1 < count_ ? kColumnRows : m_ - kColumnRows * (count_ - 1);
  }
  const std::uint64_t* masks(Byte c) const { return masks_.data() + alphabet_.number(c) * count_; }
  void start_block(std::size_t b, std::int64_t above);
  int advance_block(std::size_t b, const std::uint64_t* equal, int above);

  Alphabet alphabet_{{}};
  Buffer<std::uint64_t> masks_;  // count_ words for each number of the alphabet
  Buffer<Block> blocks_;
  std::size_t m_ = 0;
  std::int64_t k_ = 0;
  std::size_t count_ = 0;
  std::size_t last_ = 0;  // the lowest block kept up
};

void BlockTable::start_block(std::size_t b, std::int64_t above) {
  blocks_[b] = {{}, above + static_cast<std::int64_t>(height(b))};
}

int BlockTable::advance_block(std::size_t b, const std::uint64_t* equal, int above) {
  Block& block = blocks_[b];
  const auto bottom = static_cast<unsigned>(height(b) - 1);
  const int change = advance(block.column, equal[b], above, bottom);
  block.bottom += change;
  return change;
}

Status BlockTable::prepare(Bytes pattern, std::size_t k) {
  m_ = pattern.size();
  k_ = static_cast<std::int64_t>(k);
  count_ = (m_ - 1) / kColumnRows + 1;
  alphabet_ = Alphabet(pattern);
  // At most 256 words for 64 bytes of pattern: the product fits.
  if (!masks_.resize_zeroed(alphabet_.size() * count_) || !blocks_.resize(count_)) {
    return Status::out_of_memory;
  }
  for (std::size_t i = 0; i < m_; ++i) {
    masks_[alphabet_.number(pattern[i]) * count_ + i / kColumnRows] |= std::uint64_t{1}
                                                                       << i % kColumnRows;
  }
  restart();
  return Status::ok;
}

void BlockTable::restart() {
  // Ahead of the text row i holds i, so rows 1 to k are within k.
  last_ = k_ == 0 ? 0 : std::min(count_ - 1, static_cast<std::size_t>(k_ - 1) / kColumnRows);
  for (std::size_t b = 0; b <= last_; ++b) {
    start_block(b, static_cast<std::int64_t>(b * kColumnRows));
  }
}

bool BlockTable::advance_by(Byte c) {
  const std::uint64_t* const equal = masks(c);
  int change = 0;
  for (std::size_t b = 0; b <= last_; ++b) change = advance_block(b, equal, change);

  // Invariant: a block whose upper neighbour ends below k is kept up. So a cell within k can only
  // enter a block that is not by a match next to a k, or under a value that has just become k - 1.
  const std::int64_t before = blocks_[last_].bottom - change;
  if (last_ + 1 < count_ && before <= k_ && ((equal[last_ + 1] & 1) != 0 || change < 0)) {
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

// Of a pattern cut into k + 1 pieces one at least has no edit and occurs as it is (Wu and Manber
// again). The finders of the pieces run through the text at the speed of memory; only around what
// they find the table is asked.
class Pieces {
 public:
  // Whether the pieces are long enough to be rare.
  static bool are_useful(std::size_t m, std::size_t k) {
    return k + 1 <= kMost && m / (k + 1) >= kShortest;
  }

  Pieces(Bytes pattern, Bytes text, std::size_t k)
      : m_(pattern.size()), n_(text.size()), k_(k), count_(k + 1) {
    const std::size_t length = m_ / count_;
    for (std::size_t i = 0; i < count_; ++i) {
      pieces_[i].offset = i * length;
      pieces_[i].finder.start(pattern.subspan(i * length, length), text);
      find_next(pieces_[i]);
    }
  }

  // Where an occurrence around a piece that was found must lie.
  struct Window {
    std::size_t begin;
    std::size_t end;
  };

  // The next window by its begin; false when there is none.
  bool next(Window& window) {
    Piece& first = *std::min_element(pieces_, pieces_ + count_, [](const Piece& a, const Piece& b) {
      return a.window.begin < b.window.begin;
    });
    window = first.window;
    if (window.begin == npos) return false;
    find_next(first);
    return true;
  }

 private:
  static constexpr std::size_t kMost = 9;  // a finder takes 2 kB of stack
  static constexpr std::size_t kShortest = 4;

  struct Piece {
    std::size_t offset = 0;
    Finder finder;
    Window window = {npos, npos};
  };

  // k edits ahead of the piece, or behind it, move the ends of an occurrence by k at most.
  void find_next(Piece& piece) {
    const std::size_t at = piece.finder.next();
    piece.window = {npos, npos};
    if (at == npos) return;
    const std::size_t before = piece.offset + k_;
    piece.window = {at < before ? 0 : at - before, std::min(n_, at + (m_ - piece.offset) + k_)};
  }

  std::size_t m_;
  std::size_t n_;
  std::size_t k_;
  std::size_t count_;
  Piece pieces_[kMost];
};

// How much text the table is asked about before the pieces are judged.
constexpr std::size_t kFreeScan = 4096;

// The table over the whole text, or where it can have ends; those in the first `silent` bytes are
// left out.
template <typename Table, typename Report>
void scan_table(Table& table, Bytes pattern, Bytes text, std::size_t k, std::size_t silent,
                Report report) {
  std::size_t at = 0;
  const auto scan_to = [&](std::size_t end) {
    for (; at < end; ++at) {
      if (table.advance_by(text[at]) && at >= silent && !report(at + 1)) return false;
    }
    return true;
  };
  if (!Pieces::are_useful(pattern.size(), k)) {
    scan_to(text.size());
    return;
  }
  Pieces pieces(pattern, text, k);
  std::size_t scanned = 0;
  for (Pieces::Window window; at < text.size() && pieces.next(window);) {
    if (window.begin > at) {
      table.restart();
      at = window.begin;
    }
    // Where the pieces are everywhere, looking for them is lost labour.
    const bool is_crowded = scanned > kFreeScan + at / 2;
    const std::size_t begin = at;
    if (!scan_to(is_crowded ? text.size() : window.end)) return;
    scanned += at - begin;
  }
}

template <typename Report>
Status scan(Bytes pattern, Bytes text, std::int64_t edits, EditModel model, Report report) {
  const bool is_bit_parallel = model == EditModel::bit_parallel;
  if (edits < 0 || (is_bit_parallel && pattern.empty())) return Status::ok;
  Byte storage[kColumnRows];
  if (is_bit_parallel) pattern = bit_parallel_pattern(pattern, storage);
  const std::size_t m = pattern.size();
  const std::size_t n = text.size();
  const std::size_t k = std::min(static_cast<std::size_t>(edits), m);

  if (k == m) {  // deleting the pattern is allowed: it ends at every byte
    for (std::size_t end = 1; end <= n; ++end) {
      if (!report(end)) break;
    }
    return Status::ok;
  }
  if (k == 0) {
    Finder finder(pattern, text);
    for (std::size_t at = finder.next(); at != npos; at = finder.next()) {
      if (!report(at + m)) break;
    }
    return Status::ok;
  }
  if (m - k > n) return Status::ok;  // the text is too short for the bytes that must match

  if (m <= kColumnRows) {
    const WordMasks masks(pattern);
    // A stretch within k edits has at most m + k bytes, and after the first byte the automaton's
    // state holds all that a free start would give it: it only misses stretches that begin there.
    const std::size_t head = is_bit_parallel ? std::min(n, m + k) : 0;
    if (!scan_automaton(pattern, masks, text.first(head), k, report)) return Status::ok;
    if (head == n) return Status::ok;
    WordTable table(masks, m, k);
    scan_table(table, pattern, text, k, head, report);
    return Status::ok;
  }
  BlockTable table;
  if (const Status status = table.prepare(pattern, k); status != Status::ok) return status;
  scan_table(table, pattern, text, k, 0, report);
  return Status::ok;
}

}  // namespace

Result<std::size_t> first_end(Bytes pattern, Bytes text, std::int64_t k, EditModel model) {
  // The finders of the pieces run far ahead of the first end, so they are given more and more of
  // the text: the ends in a prefix do not depend on what follows.
  for (std::size_t length = kFreeScan;; length *= 16) {
    const Bytes prefix = text.first(std::min(length, text.size()));
    std::size_t first = 0;
    const Status status = scan(pattern, prefix, k, model, [&](std::size_t end) {
      first = end;
      return false;
    });
    if (status != Status::ok) return status;
    if (first != 0 || prefix.size() == text.size()) return first;
  }
}

Status all_ends(Bytes pattern, Bytes text, std::int64_t k, EditModel model,
                HeldArray<std::size_t>& ends) {
  bool is_kept = true;
  const Status status = scan(pattern, text, k, model, [&](std::size_t end) {
    is_kept = ends.push_back(end);
    return is_kept;
  });
  return is_kept ? status : Status::out_of_memory;
}

}  // namespace vstring::search
