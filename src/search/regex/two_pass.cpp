#include "search/regex/two_pass.h"

#include <algorithm>
#include <cmath>

namespace vstring::regex {

// Depth first from every state. A state is pushed again by each that leads to it; all but the copy
// entered first are dropped. Reports are made only where they are led to. False when memory fails.
bool TwoPass::order_states() {
  enum Mark : Byte { kNew, kEntered, kLeft };
  const std::uint32_t n = plan_.state_count;
  Buffer<Byte> mark;
  Buffer<StateNumber> stack;
  order_.clear();
  if (!mark.resize_zeroed(n) || !order_.reserve(n)) return false;
  for (StateNumber root = kFaults; root < n; ++root) {
    if (!stack.push_back(root)) return false;
    while (!stack.empty()) {
      const StateNumber s = stack.back();
      if (mark[s] != kNew) {
        stack.pop_back();
        if (mark[s] == kEntered && !order_.push_back(s)) return false;
        mark[s] = kLeft;
        continue;
      }
      mark[s] = kEntered;
      const State& state = plan_.states[s];
      if (!passes(state.op, true, true)) continue;
      for (const StateNumber next : successors(state)) {
        has_circle_ = has_circle_ || mark[next] == kEntered;
        if (mark[next] == kNew && !stack.push_back(next)) return false;
      }
    }
  }
  return true;
}

// Computes the row at `at` from the next row; the last place has none.
void TwoPass::work_out(Word* row, const Word* later, std::size_t at, bool is_begin) const {
  std::fill_n(row, row_words_, 0);
  const bool is_end = later == nullptr;
  const Byte c = is_end ? Byte{0} : text_[at];
  for (const StateNumber s : order_) {
    const State& state = plan_.states[s];
    bool leads_on = false;
    if (consumes(state.op)) {
      leads_on = !is_end && plan_.takes(state, c) && has(later, plan_.after(s));
    } else if (state.op == Op::accept) {
      leads_on = is_end || !plan_.ends_with_text;
    }
    if (!leads_on && passes(state.op, is_begin, is_end)) {
      leads_on = has(row, state.next) || (state.op == Op::branch && has(row, state.other));
    }
    if (leads_on) row[s / 64] |= Word{1} << (s % 64);
  }
}

bool TwoPass::prepare(std::size_t base) {
  if (!order_states()) return false;
  if (has_circle_) return true;
  base_ = base;
  row_words_ = (plan_.state_count + 63) / 64;
  const std::size_t places = text_.size() - base + 1;
  block_length_ = static_cast<std::size_t>(std::sqrt(static_cast<double>(places))) + 1;
  const std::size_t blocks = (places - 1) / block_length_ + 1;
  if (!kept_.resize(blocks * row_words_) || !rows_.resize((block_length_ + 1) * row_words_) ||
      !begin_row_.resize(row_words_)) {
    return false;
  }
  for (std::size_t block = blocks; block-- > 0;) {
    load(block);
    std::copy_n(rows_.data(), row_words_, kept_.data() + block * row_words_);
  }
  return true;
}

bool TwoPass::find_from_end(std::size_t base, std::size_t limit, std::size_t& start) {
  row_words_ = (plan_.state_count + 63) / 64;
  if (!order_states() || has_circle_ || !rows_.resize(2 * row_words_)) return false;
  start = npos;
  const Word* later = nullptr;
  for (std::size_t at = text_.size(); limit-- > 0; --at) {
    Word* const row = rows_.data() + at % 2 * row_words_;
    work_out(row, later, at, false);
    if (has(row, plan_.start)) start = at;
    const bool is_over = std::all_of(row, row + row_words_, [](Word w) { return w == 0; });
    if (is_over || at == base) return true;
    later = row;
  }
  return false;
}

// Works out the rows of a block from the first one of the block after it.
void TwoPass::load(std::size_t block) {
  block_ = block;
  const std::size_t first = base_ + block * block_length_;
  std::size_t at = first + block_length_;
  Word* row = rows_.data() + block_length_ * row_words_;
  if (at <= text_.size()) {
    std::copy_n(kept_.data() + (block + 1) * row_words_, row_words_, row);
  } else {
    at = text_.size();
    row = rows_.data() + (at - first) * row_words_;
    work_out(row, nullptr, at, false);
  }
  for (; at > first; row -= row_words_) work_out(row - row_words_, row, --at, false);
}

const TwoPass::Word* TwoPass::row(std::size_t at) {
  const std::size_t place = at - base_;
  const std::size_t first = block_ * block_length_;
  if (place < first || place - first > block_length_) load(place / block_length_);
  return rows_.data() + (place - block_ * block_length_) * row_words_;
}

inline const TwoPass::Word* TwoPass::row_after(std::size_t begin, std::size_t at) {
  return plan_.has_bol && at == begin ? begin_row_.data() : row(at);
}

// The state that a match goes on with, once it has come to state `s` at `at`.
inline StateNumber TwoPass::step(std::size_t begin, StateNumber s, std::size_t& at, Match& match) {
  const State& state = plan_.states[s];
  if (state.op == Op::branch) {
    return has(row_after(begin, at), state.next) ? state.next : state.other;
  }
  if (state.op == Op::save) match.slot[state.slot] = at;
  const bool ends_run =
      state.op == Op::star &&
      (at == text_.size() || !plan_.takes(state, text_[at]) || !has(row(at + 1), s));
  if (!consumes(state.op) || ends_run) return state.next;
  ++at;
  return plan_.after(s);
}

bool TwoPass::run(std::size_t begin, Match& match) {
  if (plan_.has_bol) {
    const Word* const later = begin < text_.size() ? row(begin + 1) : nullptr;
    work_out(begin_row_.data(), later, begin, true);
  }
  std::size_t start = begin;
  while (!plan_.may_start(text_, begin, start) || !has(row_after(begin, start), plan_.start)) {
    if (plan_.anchored || start == text_.size()) return false;
    ++start;
  }
  match.clear(plan_.slot_count);
  std::size_t at = start;
  StateNumber s = plan_.start;
  while (plan_.states[s].op != Op::accept) s = step(begin, s, at, match);
  match.slot[0] = start;
  match.slot[1] = at;
  return true;
}

}  // namespace vstring::regex
