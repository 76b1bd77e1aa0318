#include "search/regex/gate.h"

#include <algorithm>
#include <bit>

namespace vstring::regex {
namespace {

// What the gate may hold, the plan included, and how many sets make it worth while.
constexpr std::size_t kMaxBytes = std::size_t{256} << 10;
constexpr std::size_t kMinSets = 16;

// A set must serve so many bytes before the table is full.
constexpr std::size_t kBytesPerSet = 10;

constexpr std::uint32_t kUnknown = UINT32_MAX;
constexpr std::uint32_t kAccepting = UINT32_MAX - 1;
constexpr std::uint32_t kFull = UINT32_MAX - 2;

}  // namespace

// Splits the classes of bytes by each set that a state takes.
void Gate::find_classes() {
  class_count_ = 1;
  for (StateNumber s = 0; s < plan_.state_count; ++s) {
    if (!consumes(plan_.states[s].op)) continue;
    const ByteSet taken = plan_.first_bytes(plan_.states[s]);
    int part[2][256];  // of a class, by whether it is taken: its new number
    std::fill_n(part[0], 2 * 256, -1);
    class_count_ = 0;
    for (int c = 0; c < 256; ++c) {
      int& number = part[taken.has(static_cast<Byte>(c)) ? 1 : 0][class_of_[c]];
      if (number < 0) number = static_cast<int>(class_count_++);
      class_of_[c] = static_cast<Byte>(number);
    }
  }
}

bool Gate::prepare() {
  const std::size_t n = plan_.state_count;
  const std::size_t plan_bytes = n * sizeof(State);
  if (plan_bytes >= kMaxBytes) return false;
  find_classes();
  words_ = (n + 63) / 64;
  const std::size_t set_bytes = words_ * sizeof(Word) + (class_count_ + 4) * sizeof(Set);
  max_sets_ = std::bit_floor((kMaxBytes - plan_bytes) / set_bytes);
  if (max_sets_ < kMinSets || !rows_.resize(max_sets_ * class_count_) ||
      !members_.resize(max_sets_ * words_) || !table_.resize(2 * max_sets_) ||
      !room_.resize(2 * words_) || !stack_.reserve(2 * n + 1)) {
    return false;
  }
  empty_table();
  return true;
}

void Gate::empty_table() {
  set_count_ = 0;
  flushed_at_ = work_;
  std::fill(table_.begin(), table_.end(), kUnknown);
}

// Begins a new set in room_.
void Gate::clear() {
  std::fill(room_.begin(), room_.end(), Word{0});
  accepts_ = false;
}

// Adds what a state leads to without taking a byte, itself included, to the set in room_.
void Gate::add(StateNumber state, bool is_begin, bool is_end) {
  stack_.clear();
  (void)stack_.push_back(state);
  while (!stack_.empty()) {
    const StateNumber s = stack_.back();
    stack_.pop_back();
    const Word bit = Word{1} << (s % 64);
    Word& seen = room_[words_ + s / 64];
    if ((seen & bit) != 0) continue;
    seen |= bit;
    const State& added = plan_.states[s];
    accepts_ |= added.op == Op::accept;
    has_given_up_ |= added.op == Op::report;  // who reports must be asked in order
    if (consumes(added.op) || added.op == Op::eol) room_[s / 64] |= bit;
    if (!passes(added.op, is_begin, is_end)) continue;
    for (const StateNumber next : successors(added)) (void)stack_.push_back(next);
  }
}

template <typename Visit>
void Gate::for_each(Set set, Visit visit) const {
  const Word* const members = members_.data() + set / class_count_ * words_;
  for (std::size_t w = 0; w < words_; ++w) {
    for (Word rest = members[w]; rest != 0; rest &= rest - 1) {
      visit(static_cast<StateNumber>(64 * w + static_cast<std::size_t>(std::countr_zero(rest))));
    }
  }
}

// Puts into room_ the set that follows, anywhere within the text, when the byte is taken.
void Gate::make_next(Set set, Byte c) {
  clear();
  for_each(set, [&](StateNumber s) {
    const State& state = plan_.states[s];
    if (consumes(state.op) && plan_.takes(state, c)) add(plan_.after(s), false, false);
  });
  if (!plan_.anchored) add(plan_.start, false, false);
}

// The number of the set in room_, which is a new one if there is none like it.
Gate::Set Gate::number() {
  if (accepts_) return kAccepting;
  const Word* const set = room_.data();
  Word hash = 0;
  for (std::size_t w = 0; w < words_; ++w) {
    constexpr Word kGolden = 0x9e3779b97f4a7c15;
    hash = (std::rotl(hash, 5) ^ set[w]) * kGolden;
  }
  const std::size_t mask = table_.size() - 1;
  std::size_t place = hash >> 32 & mask;
  for (; table_[place] != kUnknown; place = (place + 1) & mask) {
    if (std::equal(set, set + words_, members(table_[place]))) return table_[place];
  }
  if (set_count_ == max_sets_) return kFull;
  const Set number = static_cast<Set>(set_count_++ * class_count_);
  ++sets_made_;
  table_[place] = number;
  std::copy_n(set, words_, members(number));
  std::fill_n(rows_.data() + number, class_count_, kUnknown);
  return number;
}

// Whether a match ends with the text, which leaves threads in the states of `set`.
bool Gate::accepts_at_end(Set set, bool is_begin) {
  clear();
  for_each(set, [&](StateNumber s) {
    if (plan_.states[s].op == Op::eol) add(plan_.states[s].next, is_begin, true);
  });
  return accepts_;
}

Gate::Answer Gate::run(std::size_t begin, std::size_t from) {
  has_given_up_ = has_given_up_ || (words_ == 0 && !prepare());
  if (has_given_up_) return Answer::unknown;
  clear();
  add(plan_.start, from == begin, false);
  Set set = number();
  for (std::size_t at = from; !has_given_up_; ++at, ++work_) {
    if (set == kFull) {
      has_given_up_ = work_ - flushed_at_ < kBytesPerSet * set_count_;
      empty_table();
      set = number();
    }
    if (set == kAccepting) return Answer::yes;
    const std::size_t first = at;
    Set next = kUnknown;
    while (at < text_.size() && (next = rows_[set + class_of_[text_[at]]]) < kFull) {
      set = next;
      ++at;
    }
    work_ += at - first;
    if (at == text_.size()) {
      const bool accepts = accepts_at_end(set, at == begin);
      return has_given_up_ ? Answer::unknown : accepts ? Answer::yes : Answer::no;
    }
    if (next == kUnknown) {
      make_next(set, text_[at]);
      next = number();
      if (next != kFull) rows_[set + class_of_[text_[at]]] = next;
    }
    set = next;
  }
  return Answer::unknown;
}

}  // namespace vstring::regex
