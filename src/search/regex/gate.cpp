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

// Splits the classes of bytes by each thing that a state tests.
void Gate::find_classes() {
  std::fill_n(class_of_, 256, Byte{0});
  class_count_ = 1;
  for (StateNumber s = 0; s < plan_.state_count && class_count_ < 256; ++s) {
    const State& state = plan_.states[s];
    if (!consumes(state.op) || (state.op != Op::literal && state.test == Test::any)) continue;
    const ByteSet taken = plan_.first_bytes(state);
    int split[256];  // by class: the class of its bytes that are taken; -1: none met yet
    int other[256];  // the same for those that are not
    std::fill_n(split, class_count_, -1);
    std::fill_n(other, class_count_, -1);
    for (int c = 0; c < 256; ++c) {
      Byte& own = class_of_[c];
      const bool is_taken = taken.has(static_cast<Byte>(c));
      int& target = is_taken ? split[own] : other[own];
      const bool keeps = (is_taken ? other : split)[own] != own;
      if (target < 0) target = keeps ? own : static_cast<int>(class_count_++);
      own = static_cast<Byte>(target);
    }
  }
  for (int c = 256; c-- > 0;) member_[class_of_[c]] = static_cast<Byte>(c);
}

bool Gate::prepare() {
  const std::size_t n = plan_.state_count;
  const std::size_t plan_bytes = n * sizeof(State);
  if (plan_bytes >= kMaxBytes) return false;
  find_classes();
  words_ = (n + 63) / 64;
  const std::size_t set_bytes = words_ * sizeof(Word) + (class_count_ + 4) * sizeof(Set);
  max_sets_ = std::bit_floor((kMaxBytes - plan_bytes) / set_bytes);
  if (max_sets_ < kMinSets) return false;
  if (!rows_.resize(max_sets_ * class_count_) || !members_.resize(max_sets_ * words_) ||
      !table_.resize(2 * max_sets_) || !room_.resize_zeroed(3 * words_) ||
      !stack_.reserve(2 * n + 1)) {
    return false;
  }
  Word* const takers = room_.data() + words_;
  Word* const accepting = takers + words_;
  for (StateNumber s = 0; s < n; ++s) {
    const Op op = plan_.states[s].op;
    if (consumes(op)) takers[s / 64] |= Word{1} << (s % 64);
    if (op == Op::accept) accepting[s / 64] |= Word{1} << (s % 64);
  }
  empty_table();
  return true;
}

void Gate::empty_table() {
  set_count_ = 0;
  flushed_at_ = work_;
  std::fill(table_.begin(), table_.end(), kUnknown);
}

// Adds what a state leads to without taking a byte, itself included, to the set in room_.
void Gate::add(StateNumber state, bool is_begin, bool is_end) {
  stack_.clear();
  (void)stack_.push_back(state);
  while (!stack_.empty()) {
    const StateNumber s = stack_.back();
    stack_.pop_back();
    Word& word = room_[s / 64];
    const Word bit = Word{1} << (s % 64);
    if ((word & bit) != 0) continue;
    word |= bit;
    const State& added = plan_.states[s];
    if (added.op == Op::report) has_given_up_ = true;  // who reports must be asked in order
    if ((added.op == Op::bol && !is_begin) || (added.op == Op::eol && !is_end) ||
        (consumes(added.op) && added.op != Op::star)) {
      continue;
    }
    for (const StateNumber next : successors(added)) (void)stack_.push_back(next);
  }
}

template <typename Visit>
void Gate::for_each(const Word* set, const Word* among, Visit visit) const {
  for (std::size_t w = 0; w < words_; ++w) {
    for (Word rest = set[w] & among[w]; rest != 0; rest &= rest - 1) {
      visit(static_cast<StateNumber>(64 * w + static_cast<std::size_t>(std::countr_zero(rest))));
    }
  }
}

// Puts into room_ the set that follows, anywhere within the text, when the byte is taken.
void Gate::make_next(Set set, Byte c) {
  std::fill_n(room_.data(), words_, Word{0});
  for_each(members(set), room_.data() + words_, [&](StateNumber s) {
    if (plan_.takes(plan_.states[s], c)) add(plan_.after(s), false, false);
  });
  if (!plan_.anchored) add(plan_.start, false, false);
}

// The number of the set in room_, which is a new one if there is none like it.
Gate::Set Gate::number() {
  const Word* const set = room_.data();
  bool accepts = false;
  for_each(set, room_.data() + 2 * words_, [&](StateNumber) { accepts = true; });
  if (accepts) return kAccepting;
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
  std::copy_n(set, words_, members_.data() + number / class_count_ * words_);
  std::fill_n(rows_.data() + number, class_count_, kUnknown);
  return number;
}

// Whether a match ends with the text, which leaves threads in the states of `set`.
bool Gate::accepts_at_end(Set set, bool is_begin) {
  const Word* const all = members(set);
  std::copy_n(all, words_, room_.data());
  for_each(all, all, [&](StateNumber s) {
    const State& state = plan_.states[s];
    if (state.op == Op::eol) add(state.next, is_begin, true);
  });
  return number() == kAccepting;
}

Gate::Answer Gate::run(std::size_t begin, std::size_t from) {
  if (has_given_up_ || (words_ == 0 && !prepare())) {
    has_given_up_ = true;
    return Answer::unknown;
  }
  const auto answer = [this](bool matches) {
    return has_given_up_ ? Answer::unknown : matches ? Answer::yes : Answer::no;
  };
  std::fill_n(room_.data(), words_, Word{0});
  add(plan_.start, from == begin, false);
  Set set = number();
  for (std::size_t at = from; !has_given_up_; ++at, ++work_) {
    if (set == kFull) {
      has_given_up_ = work_ - flushed_at_ < kBytesPerSet * set_count_;
      empty_table();
      set = number();
    }
    if (set == kAccepting) return answer(true);
    const std::size_t first = at;
    Set next = kUnknown;
    while (at < text_.size() && (next = rows_[set + class_of_[text_[at]]]) < kFull) {
      set = next;
      ++at;
    }
    work_ += at - first;
    if (at == text_.size()) return answer(accepts_at_end(set, at == begin));
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
