#include "search/approximate/approximate.h"

#include <algorithm>
#include <bit>

#include "bytes/budget.h"
#include "bytes/edit_lanes.h"
#include "search/approximate/edit_table.h"
#include "search/approximate/pieces.h"
#include "search/exact/exact.h"

namespace vstring::search {
namespace {

// Every scan below hands the ends to report(end) in increasing order and stops when it says false.

// The pattern that the bit-parallel model really looks for; longer ones are built in `storage`.
Bytes bit_parallel_pattern(Bytes pattern, Byte (&storage)[kRows]) {
  constexpr std::size_t kMaskBits = 32;
  if (pattern.size() <= kMaskBits) return pattern;
  const std::size_t length = (pattern.size() - 1) % kRows + 1;
  copy_into(storage, pattern.first(kMaskBits));
  std::fill(storage + kMaskBits, storage + kRows, pattern[kMaskBits - 1]);
  return {storage, length};
}

// The automaton from its zero start. Requires 1 <= k < m <= 64. False when stopped.
template <typename Report>
bool scan_automaton(Bytes pattern, const WordMasks& masks, Bytes text, std::size_t k,
                    Report report) {
  std::uint64_t state[kRows] = {};  // bit i of state[d]: pattern[0, i] ends here in d edits
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

// The table over text[at, end), where it stands ahead of `at`; ends in the first `silent` bytes are
// left out. False when stopped.
template <typename Table, typename Report>
bool step_through(Table& table, Bytes text, std::size_t& at, std::size_t end, std::size_t silent,
                  Report report) {
  for (; at < end; ++at) {
    if (table.advance_by(text[at]) && at >= silent && !report(at + 1)) return false;
  }
  return true;
}

// Long texts go through columns side by side.
template <typename Report>
bool scan_through(WordTable& table, Bytes text, std::size_t& at, std::size_t end,
                  std::size_t silent, Report report) {
  constexpr std::size_t kLeastPart = kEditLanes * 64;
  constexpr std::size_t kMostWords = 32;
  if (end - at < 2 * kLeastPart) return step_through(table, text, at, end, silent, report);
  // No stretch within k edits is longer: a column that starts as far back knows all it needs.
  const std::size_t lead = table.pattern().rows + table.pattern().k;
  if (!step_through(table, text, at, std::max(at, lead), silent, report)) return false;
  while (end - at >= kLeastPart) {
    // No more than has been passed: an end soon stops a search for the first one.
    const std::size_t most = std::min({end - at, at, kMostWords * kLeastPart});
    const std::size_t words = std::max<std::size_t>(most / kLeastPart, 1);
    std::uint64_t ends[kEditLanes * kMostWords];
    find_edit_ends(table.pattern(), text.data() + at - lead, lead, words, ends);
    for (std::size_t lane = 0; lane < kEditLanes; ++lane) {
      for (std::size_t w = 0; w < words; ++w, at += 64) {
        for (std::uint64_t hits = ends[kEditLanes * w + lane]; hits != 0; hits &= hits - 1) {
          if (!report(at + static_cast<std::size_t>(std::countr_zero(hits)) + 1)) return false;
        }
      }
    }
  }
  table.restart();
  for (const Byte c : text.subspan(at - lead, lead)) table.advance_by(c);
  return step_through(table, text, at, end, silent, report);
}

template <typename Report>
bool scan_through(BlockTable& table, Bytes text, std::size_t& at, std::size_t end,
                  std::size_t silent, Report report) {
  return step_through(table, text, at, end, silent, report);
}

// What looking for pieces may lose, in bytes of a long stretch, before it must pay.
constexpr std::size_t kFreeScan = 4096;

// The table over the whole text, or where it can have ends.
template <typename Table, typename Report>
void sweep(Table& table, Bytes pattern, Bytes text, std::size_t k, std::size_t silent,
           Report report) {
  std::size_t at = 0;
  if (!Pieces::are_useful(pattern.size(), k)) {
    scan_through(table, text, at, text.size(), silent, report);
    return;
  }
  Pieces pieces(pattern, text, k);
  Budget budget(kFreeScan);
  for (Pieces::Window window; at < text.size() && pieces.next(window);) {
    if (window.begin > at) {
      table.restart();
      budget.earn(window.begin - at);
      at = window.begin;
    }
    // Where the pieces are everywhere, looking for them is lost labour.
    const std::size_t begin = at;
    const std::size_t end = budget.is_used_up() ? text.size() : std::max(at, window.end);
    if (!scan_through(table, text, at, end, silent, report)) return;
    budget.spend(Table::kStepCost * (at - begin));
  }
}

template <typename Report>
void scan_exactly(Bytes pattern, Bytes text, Report report) {
  Finder finder(pattern, text);
  for (std::size_t at = finder.next(); at != npos; at = finder.next()) {
    if (!report(at + pattern.size())) return;
  }
}

// A stretch within k edits has at most m + k bytes, and after the first byte the automaton's state
// holds all that a free start would give it: it only misses stretches that begin there. So for the
// bit-parallel model the automaton answers in the first m + k bytes, and the table behind them.
template <typename Report>
void scan_by_word(Bytes pattern, Bytes text, std::size_t k, EditModel model, Report report) {
  const WordMasks masks(pattern);
  std::size_t head = 0;
  if (model == EditModel::bit_parallel) {
    head = std::min(text.size(), pattern.size() + k);
    if (!scan_automaton(pattern, masks, text.first(head), k, report)) return;
    if (head == text.size()) return;
  }
  WordTable table(masks, pattern.size(), k);
  sweep(table, pattern, text, k, head, report);
}

template <typename Report>
Status scan_by_blocks(Bytes pattern, Bytes text, std::size_t k, Report report) {
  BlockTable table;
  if (const Status status = table.prepare(pattern, k); status != Status::ok) return status;
  sweep(table, pattern, text, k, 0, report);
  return Status::ok;
}

template <typename Report>
Status scan(Bytes pattern, Bytes text, std::int64_t edits, EditModel model, Report report) {
  if (pattern.empty() && model == EditModel::bit_parallel) return Status::ok;
  const std::size_t m = pattern.size();
  const std::size_t k = std::min(static_cast<std::size_t>(edits), m);
  if (edits < 0 || m - k > text.size()) {
    // No stretch of the text has the bytes that must match.
  } else if (k == m) {
    // Deleting the pattern is allowed: it ends at every byte.
    for (std::size_t end = 1; end <= text.size() && report(end);) ++end;
  } else if (k == 0) {
    scan_exactly(pattern, text, report);
  } else if (m <= kRows) {
    scan_by_word(pattern, text, k, model, report);
  } else {
    return scan_by_blocks(pattern, text, k, report);
  }
  return Status::ok;
}

}  // namespace

Result<std::size_t> first_end(Bytes pattern, Bytes text, std::int64_t k, EditModel model) {
  Byte storage[kRows];
  if (model == EditModel::bit_parallel) pattern = bit_parallel_pattern(pattern, storage);
  // The finders of the pieces run far ahead of the first end, so they are given more and more of
  // the text. A stretch that ends behind a part begins no more than m + k <= 2 m bytes ahead of
  // its end; so far from the text's first byte the two models agree.
  std::size_t begin = 0;
  for (std::size_t length = kFreeScan;; length *= 16) {
    const std::size_t end = std::min(length, text.size());
    std::size_t first = 0;
    const Status status =
        scan(pattern, text.subspan(begin, end - begin), k, model, [&](std::size_t found) {
          first = found;
          return false;
        });
    if (status != Status::ok) return status;
    if (first != 0) return begin + first;
    // The empty pattern ends at the first byte or nowhere.
    if (end == text.size() || pattern.empty()) return std::size_t{0};
    begin = end - std::min(end, 2 * pattern.size());
    if (begin > 0) model = EditModel::table;
  }
}

Status all_ends(Bytes pattern, Bytes text, std::int64_t k, EditModel model,
                HeldArray<std::size_t>& ends) {
  Byte storage[kRows];
  if (model == EditModel::bit_parallel) pattern = bit_parallel_pattern(pattern, storage);
  bool is_kept = true;
  const Status status = scan(pattern, text, k, model, [&](std::size_t end) {
    is_kept = ends.push_back(end);
    return is_kept;
  });
  return is_kept ? status : Status::out_of_memory;
}

}  // namespace vstring::search
