#include "words/statistics.h"

#include <array>
#include <bit>
#include <cmath>

#include "bytes/common.h"
#include "charclass/class_table.h"
#include "words/merge_sort.h"

namespace vstring::words {
namespace {

struct Numbered {
  Bytes text;
  std::size_t number;  // place in the list
};

std::uint64_t hash_of(Bytes text) {
  constexpr std::uint64_t kFactor = 0x9e3779b97f4a7c15U;  // 2^64 divided by the golden ratio
  std::uint64_t hash = text.size();
  const auto add = [&hash](std::uint64_t word) {
    hash = (hash ^ word) * kFactor;
    hash ^= hash >> 32;
  };
  std::size_t i = 0;
  for (; i + 8 <= text.size(); i += 8) add(load8(text.data() + i));
  std::uint64_t rest = 0;
  for (unsigned shift = 0; i < text.size(); ++i, shift += 8) {
    rest |= static_cast<std::uint64_t>(text[i]) << shift;
  }
  add(rest);
  return hash;
}

// Finds the tally of a text. Open addressing, at most half full.
class TallyTable {
 public:
  explicit TallyTable(HeldArray<Tally>& tallies) : tallies_(tallies) {}

  Status start() { return grow(kFirstSlots) ? Status::ok : Status::out_of_memory; }

  // Status::refused when the table has cost so much that the texts must be meant to collide.
  Status count(Bytes text) {
    if (2 * (tallies_.size() + 1) > slots_.size() && !grow(2 * slots_.size())) {
      return Status::out_of_memory;
    }
    ++counted_;
    const std::uint64_t hash = hash_of(text);
    std::size_t i = hash & (slots_.size() - 1);
    for (; slots_[i].number != 0; i = (i + 1) & (slots_.size() - 1)) {
      if (slots_[i].hash == hash) {
        Tally& tally = tallies_[slots_[i].number - 1];
        if (equal(tally.text, text)) {
          ++tally.count;
          return Status::ok;
        }
        spent_ += kCollision;
      }
      if (++spent_ > kCollision + kProbes * counted_) return Status::refused;
    }
    if (!tallies_.push_back({text, 1})) return Status::out_of_memory;
    slots_[i] = {hash, tallies_.size()};
    return Status::ok;
  }

 private:
  static constexpr std::size_t kFirstSlots = 1024;
  static constexpr std::size_t kProbes = 64;       // a text, on average over all
  static constexpr std::size_t kCollision = 4096;  // what two texts with one hash count for

  struct Slot {
    std::uint64_t hash;
    std::size_t number;  // of the tally, from 1 on
  };

  bool grow(std::size_t size) {
    Buffer<Slot> old;
    std::swap(static_cast<HeldArray<Slot>&>(old), static_cast<HeldArray<Slot>&>(slots_));
    if (!slots_.resize_zeroed(size)) return false;
    for (const Slot& slot : old) {
      if (slot.number == 0) continue;
      std::size_t i = slot.hash & (size - 1);
      while (slots_[i].number != 0) i = (i + 1) & (size - 1);
      slots_[i] = slot;
    }
    return true;
  }

  HeldArray<Tally>& tallies_;
  Buffer<Slot> slots_;
  std::size_t counted_ = 0;
  std::size_t spent_ = 0;
};

Status tally_by_table(std::span<const Bytes> texts, HeldArray<Tally>& tallies) {
  TallyTable table(tallies);
  Status status = table.start();
  for (std::size_t i = 0; i < texts.size() && status == Status::ok; ++i) {
    status = table.count(texts[i]);
  }
  return status;
}

Status tally_by_sorting(std::span<const Bytes> texts, HeldArray<Tally>& tallies) {
  Buffer<Numbered> sorted;
  Buffer<std::size_t> counts;
  if (!sorted.resize(texts.size()) || !counts.resize_zeroed(texts.size())) {
    return Status::out_of_memory;
  }
  for (std::size_t i = 0; i < texts.size(); ++i) sorted[i] = {texts[i], i};
  const Status status = merge_sort<Numbered>(
      {sorted.data(), sorted.size()},
      [](const Numbered& a, const Numbered& b) { return text_less(a.text, b.text); });
  if (status != Status::ok) return status;
  std::size_t first_number = 0;
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    if (i == 0 || !equal(sorted[i].text, sorted[i - 1].text)) first_number = sorted[i].number;
    ++counts[first_number];
  }
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (counts[i] != 0 && !tallies.push_back({texts[i], counts[i]})) return Status::out_of_memory;
  }
  return Status::ok;
}

}  // namespace

double entropy(Bytes text) {
  std::array<std::size_t, 256> counts = {};
  for (const Byte c : text) ++counts[c];
  const auto n = static_cast<double>(text.size());
  double sum = 0;
  for (const std::size_t count : counts) {
    if (count == 0) continue;
    const auto occurrences = static_cast<double>(count);
    sum += occurrences * std::log2(n / occurrences);
  }
  return text.empty() ? 0 : sum / n;
}

TextCounts count_text(Bytes text) {
  TextCounts counts = {};
  std::size_t is_token = 0;
  for (const Byte c : text) {
    const std::size_t was_token = is_token;
    is_token = charclass::is(c, charclass::kSpace) ? 0 : 1;
    counts.tokens += is_token & ~was_token;
    counts.newlines += c == '\n' ? 1 : 0;
  }
  return counts;
}

Status tally_letters(Bytes text, HeldArray<Tally>& tallies) {
  std::array<std::size_t, 256> counts = {};
  std::array<std::size_t, 256> first = {};
  for (std::size_t i = text.size(); i-- > 0;) {
    ++counts[text[i]];
    first[text[i]] = i;
  }
  for (unsigned c = 0; c < 256; ++c) {
    if (counts[c] != 0 && !tallies.push_back({text.subspan(first[c], 1), counts[c]})) {
      return Status::out_of_memory;
    }
  }
  std::sort(tallies.begin(), tallies.end(),
            [](const Tally& a, const Tally& b) { return a.text.data() < b.text.data(); });
  return Status::ok;
}

Status tally_texts(std::span<const Bytes> texts, HeldArray<Tally>& tallies) {
  constexpr std::size_t kFew = 16;
  if (texts.size() > kFew) {
    const Status status = tally_by_table(texts, tallies);
    if (status != Status::refused) return status;
    tallies.clear();
  }
  return tally_by_sorting(texts, tallies);
}

Status keep_most_frequent(std::size_t n, HeldArray<Tally>& tallies) {
  const Status status =
      merge_sort<Tally>({tallies.data(), tallies.size()},
                        [](const Tally& a, const Tally& b) { return a.count > b.count; });
  while (tallies.size() > n) tallies.pop_back();
  return status;
}

}  // namespace vstring::words
