#include "search/regex/prepare.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "runtime/memory.h"

namespace vstring::regex {
namespace {

class Decoder {
 public:
  explicit Decoder(const VstringRegex& regex)
      : program_(regex.program), limit_(regex.size != 0 ? regex.size : kMaxProgram) {
    plan_.program = program_;
    plan_.anchored = regex.anchored != 0;
    plan_.slot_count = 2;
  }

  // False when memory fails.
  bool run();

  // The plan, but for its hints. Null when memory fails.
  Plan* finish() const;

 private:
  struct Task {
    std::size_t node;
    StateNumber state;
  };

  // Whether a node can be read at this offset.
  bool inside(std::size_t node) const { return node != 0 && node + kNodeHeader <= limit_; }
  Byte opcode(std::size_t node) const { return program_[node]; }
  std::size_t next(std::size_t node) const { return next_of(program_, node); }
  // The bytes of a NUL-terminated operand.
  Bytes text(std::size_t node) const {
    const std::size_t at = operand_of(node);
    return {program_ + at, strnlen(chars(program_ + at), limit_ - at)};
  }

  StateNumber state_at(std::size_t node);
  StateNumber state_of(std::size_t node);
  std::size_t states_needed(std::size_t node) const;
  void fill(Task task);
  void fill_literal(Task task);
  void fill_repetition(Task task);
  void set_test(State& state, std::size_t node);

  const Byte* program_;
  const std::size_t limit_;
  Buffer<State> states_;
  Buffer<ByteScan> sets_;
  Buffer<StateNumber> number_;  // of the state at each node; 0: none yet
  Buffer<Task> tasks_;          // nodes that have a number, but whose states are not filled yet
  Plan plan_ = {};
  std::uint16_t branch_count_ = 0;
  bool has_memory_ = true;
};

bool Decoder::run() {
  // Every plan begins with the state that fails, then those that report a fault each.
  if (!states_.resize(kFaults) || !number_.resize_zeroed(limit_)) return false;
  states_[kFailState] = {};
  for (StateNumber i = kFailState + 1; i < kFaults; ++i) {
    states_[i] = {};
    states_[i].op = Op::report;
    states_[i].other = i;
  }
  constexpr std::size_t kFirstNode = 1;
  plan_.start = state_at(kFirstNode);
  while (!tasks_.empty() && has_memory_) {
    const Task task = tasks_.back();
    tasks_.pop_back();
    fill(task);
  }
  return has_memory_;
}

// The state that stands for what happens at a node: nodes that match nothing are passed over, and
// so is the choice of a branch that has no alternative left.
StateNumber Decoder::state_at(std::size_t node) {
  for (std::size_t steps = 0; steps < limit_; ++steps) {
    if (!inside(node)) return kBrokenChain;
    const Byte op = opcode(node);
    if (op == kNothing || op == kBack) {
      node = next(node);
    } else if (op == kBranch && !(inside(next(node)) && opcode(next(node)) == kBranch)) {
      node = operand_of(node);
    } else {
      return state_of(node);
    }
  }
  return kFailState;  // nodes in a circle: nothing would ever be decided there
}

StateNumber Decoder::state_of(std::size_t node) {
  if (number_[node] != 0) return number_[node];
  const std::size_t needed = states_needed(node);
  if (needed == 0) return kBadOpcode;
  const std::size_t first = states_.size();
  // Sound nodes do not overlap, so that they have fewer states than bytes.
  if (first + needed > limit_ + kFaults) return kBrokenChain;
  const auto state = static_cast<StateNumber>(first);
  if (!states_.resize(first + needed) || !tasks_.push_back({node, state})) {
    has_memory_ = false;
    return kFailState;
  }
  for (std::size_t i = first; i < first + needed; ++i) states_[i] = {};
  return number_[node] = state;
}

std::size_t Decoder::states_needed(std::size_t node) const {
  const Byte op = opcode(node);
  if (op == kExactly) return std::max<std::size_t>(text(node).size(), 1);
  if (op == kPlus) return 2;
  return op <= kStar || is_open(op) || is_close(op) ? 1 : 0;
}

void Decoder::fill(Task task) {
  const Byte op = opcode(task.node);
  if (op == kExactly) return fill_literal(task);
  if (op == kStar || op == kPlus) return fill_repetition(task);
  State state;
  if (op == kBranch) {
    state.op = Op::branch;
    state.at = branch_count_++;
    state.next = state_at(operand_of(task.node));
    state.other = state_at(next(task.node));
  } else if (op == kEnd) {
    state.op = Op::accept;
  } else {
    state.next = state_at(next(task.node));
    switch (op) {
      case kBol:
        state.op = Op::bol;
        plan_.has_bol = true;
        break;
      case kEol:
        state.op = Op::eol;
        break;
      case kAny:
      case kAnyOf:
      case kAnyBut:
        state.op = Op::one;
        set_test(state, task.node);
        break;
      default: {
        const int slot = is_open(op) ? 2 * (op - kOpen) : 2 * (op - kClose) + 1;
        state.op = Op::save;
        state.slot = static_cast<Byte>(slot);
        plan_.slot_count = std::max(plan_.slot_count, static_cast<std::uint32_t>(slot | 1) + 1);
      }
    }
  }
  states_[task.state] = state;
}

void Decoder::fill_literal(Task task) {
  const Bytes literal = text(task.node);
  const StateNumber after = state_at(next(task.node));
  State* const states = states_.data() + task.state;
  if (literal.empty()) {  // its first byte is the terminator, which only the text's end equals
    states[0].op = Op::eol;
    states[0].next = after;
  }
  for (std::size_t i = 0; i < literal.size(); ++i) {
    states[i].op = Op::literal;
    states[i].byte = literal[i];
    states[i].next = after;
    states[i].other = static_cast<std::uint32_t>(literal.size() - i);
    states[i].at = static_cast<std::uint16_t>(operand_of(task.node) + i);
  }
}

void Decoder::fill_repetition(Task task) {
  const bool is_plus = opcode(task.node) == kPlus;
  const std::size_t operand = operand_of(task.node);
  State state;
  state.next = state_at(next(task.node));
  const Byte op = inside(operand) ? opcode(operand) : Byte{kEnd};
  if (op == kAny || op == kAnyOf || op == kAnyBut || op == kExactly) {
    state.op = Op::star;
    set_test(state, operand);
  } else {  // counts as none
    state.op = Op::report;
    state.other = kBadOperand;
    if (is_plus) state.next = kFailState;
  }
  states_[task.state] = state;
  if (!is_plus) return;
  states_[task.state + 1] = state;
  if (state.op == Op::star) states_[task.state].op = Op::plus;
}

void Decoder::set_test(State& state, std::size_t node) {
  const Byte op = opcode(node);
  if (op == kAny) return;
  const Bytes operand = text(node);
  if (op == kExactly) {
    state.test = Test::byte;
    state.byte = operand.empty() ? Byte{0} : operand[0];
    return;
  }
  ByteSet set(operand);
  if (op == kAnyBut) set.complement();
  state.test = Test::set;
  state.other = static_cast<std::uint32_t>(sets_.size());
  if (!sets_.push_back(ByteScan(set))) has_memory_ = false;
}

Plan* Decoder::finish() const {
  static_assert(sizeof(Plan) % alignof(State) == 0 && sizeof(Plan) % alignof(ByteScan) == 0 &&
                sizeof(State) % alignof(ByteScan) == 0 &&
                sizeof(ByteScan) % alignof(LookAhead) == 0);
  const std::size_t bytes = sizeof(Plan) + states_.size() * sizeof(State) +
                            sets_.size() * sizeof(ByteScan) + branch_count_ * sizeof(LookAhead);
  auto* const plan = static_cast<Plan*>(std::malloc(bytes));
  if (plan == nullptr) return nullptr;
  *plan = plan_;
  plan->state_count = static_cast<std::uint32_t>(states_.size());
  plan->states = reinterpret_cast<State*>(plan + 1);
  auto* const sets = reinterpret_cast<ByteScan*>(plan->states + states_.size());
  plan->sets = sets;
  plan->look_ahead = reinterpret_cast<LookAhead*>(sets + sets_.size());
  std::copy(states_.begin(), states_.end(), plan->states);
  std::copy(sets_.begin(), sets_.end(), sets);
  return plan;
}

}  // namespace

Plan* decode(const VstringRegex& regex) {
  Decoder decoder(regex);
  return decoder.run() ? decoder.finish() : nullptr;
}

}  // namespace vstring::regex
