#include "search/regex/two_pass.h"

#include <algorithm>
#include <cmath>

namespace vstring::regex {
namespace {

// Where a state leads without taking a byte: `next` and `other`, as far as they count.
bool leads_to_next(Op op) {
  return op == Op::report || op == Op::bol || op == Op::eol || op == Op::branch || op == Op::save ||
         op == Op::star;
}

}  // namespace

// Depth first from every state. A state is pushed again by each that leads to it; all but the copy
// entered first are dropped.
Status TwoPass::order_states() {
  enum Mark : Byte { kNew, kEntered, kLeft };
  const std::uint32_t n = plan_.state_count;
  Buffer<Byte> mark;
  Buffer<std::uint32_t> stack;
  if (!mark.resize_zeroed(n) || !order_.reserve(n)) return Status::out_of_memory;
  for (std::uint32_t root = 0; root < n; ++root) {
    if (!stack.push_back(root)) return Status::out_of_memory;
    while (!stack.empty()) {
      const std::uint32_t s = stack.back();
      if (mark[s] != kNew) {
        stack.pop_back();
        if (mark[s] == kEntered && !order_.push_back(s)) return Status::out_of_memory;
        mark[s] = kLeft;
        continue;
      }
      mark[s] = kEntered;
      const State& state = plan_.states[s];
      if (!leads_to_next(state.op)) continue;
      const std::uint32_t targets[] = {state.next, state.other};
      for (int i = 0; i < (state.op == Op::branch ? 2 : 1); ++i) {
        if (mark[targets[i]] == kEntered) return Status::refused;
        if (mark[targets[i]] == kNew && !stack.push_back(targets[i])) return Status::out_of_memory;
      }
    }
  }
  return Status::ok;
}

// The row of the place `at` from that of the next one, which the end of the text has not.
void TwoPass::work_out(Word* row, const Word* later, std::size_t at, bool is_begin) const {
  std::fill_n(row, row_words_, 0);
  const bool is_end = later == nullptr;
  const Byte c = is_end ? Byte{0} : text_[at];
  for (const std::uint32_t s : order_) {
    const State& state = plan_.states[s];
    bool leads_on = false;
    switch (state.op) {
      case Op::fail:
        break;
      case Op::accept:
        leads_on = true;
        break;
      case Op::bol:
        leads_on = is_begin && has(row, state.next);
        break;
      case Op::eol:
        leads_on = is_end && has(row, state.next);
        break;
      case Op::report:
      case Op::save:
        leads_on = has(row, state.next);
        break;
      case Op::branch:
        leads_on = has(row, state.next) || has(row, state.other);
        break;
      case Op::one:
      case Op::literal:
      case Op::star:
      case Op::plus:
        leads_on = (!is_end && plan_.takes(state, c) && has(later, plan_.after(s))) ||
                   (state.op == Op::star && has(row, state.next));
        break;
    }
    if (leads_on) row[s / 64] |= Word{1} << (s % 64);
  }
}

Status TwoPass::prepare(std::size_t base) {
  const Status ordered = order_states();
  if (ordered != Status::ok) return ordered;
  base_ = base;
  block_ = kNowhere;
  row_words_ = (plan_.state_count + 63) / 64;
  const std::size_t places = text_.size() - base + 1;
  block_length_ = static_cast<std::size_t>(std::sqrt(static_cast<double>(places))) + 1;
  const std::size_t blocks = (places - 1) / block_length_ + 1;
  if (!kept_.resize(blocks * row_words_) || !rows_.resize((block_length_ + 1) * row_words_) ||
      !begin_row_.resize(row_words_)) {
    return Status::out_of_memory;
  }
  for (std::size_t block = blocks; block-- > 0;) {
    load(block);
    std::copy_n(rows_.data(), row_words_, kept_.data() + block * row_words_);
  }
  return Status::ok;
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
  const bool at_hand = block_ != kNowhere && place >= block_ * block_length_ &&
                       place - block_ * block_length_ <= block_length_;
  if (!at_hand) load(place / block_length_);
  return rows_.data() + (place - block_ * block_length_) * row_words_;
}

bool TwoPass::run(std::size_t begin, Match& match) {
  if (plan_.has_bol) {
    const Word* const later = begin < text_.size() ? row(begin + 1) : nullptr;
    work_out(begin_row_.data(), later, begin, true);
  }
  const auto row_at = [&](std::size_t at) {
    return plan_.has_bol && at == begin ? begin_row_.data() : row(at);
  };
  std::size_t start = begin;
  while (!plan_.may_start(text_, begin, start) || !has(row_at(start), plan_.start)) {
    if (plan_.anchored || start == text_.size()) return false;
    ++start;
  }
  match.clear();
  std::size_t at = start;
  std::uint32_t s = plan_.start;
  for (;;) {
    const State& state = plan_.states[s];
    switch (state.op) {
      case Op::accept:
        match.slot[0] = start;
        match.slot[1] = at;
        return true;
      case Op::branch:
        s = has(row_at(at), state.next) ? state.next : state.other;
        break;
      case Op::star:
        if (at < text_.size() && plan_.takes(state, text_[at]) && has(row(at + 1), s)) {
          ++at;
        } else {
          s = state.next;
        }
        break;
      case Op::one:
      case Op::literal:
      case Op::plus:
        ++at;
        s = plan_.after(s);
        break;
      case Op::save:
        match.slot[state.slot] = at;
        s = state.next;
        break;
      case Op::fail:
      case Op::report:
      case Op::bol:
      case Op::eol:
        s = state.next;
        break;
    }
  }
}

}  // namespace vstring::regex
