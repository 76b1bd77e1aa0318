// The compiler: one parser that runs twice, first to measure the program, then to write it.
//
// The parser descends recursively, one level for each open parenthesis. The tenth parenthesis is
// refused as it opens, so that the descent is never more than ten levels deep, whatever the
// pattern's length.
#include <cstdlib>
#include <cstring>

#include "host/vstring.h"
#include "search/regex/error.h"
#include "search/regex/program.h"

namespace vstring::regex {
namespace {

constexpr const char* kMeta = "^$.[()|?+*\\";

constexpr bool is_repetition(Byte c) { return c == '*' || c == '+' || c == '?'; }

// What the parser knows of a part of the pattern. No node: the part was refused.
struct Part {
  std::size_t node = 0;
  bool has_width = false;         // cannot match the empty string
  bool is_simple = false;         // one node that matches one byte
  bool starts_with_star = false;  // can start with a starred piece
};

class Compiler {
 public:
  // Without a program, nothing is written and only the size is found.
  Compiler(const char* pattern, Byte* program)
      : at_(reinterpret_cast<const Byte*>(pattern)), program_(program) {
    put(kMagic);
  }

  // The whole pattern, as its first BRANCH; a refusal is recorded.
  Part pattern() {
    const Part whole = expression(false);
    if (whole.node == 0 || *at_ == '\0') return whole;
    return refuse(*at_ == ')' ? errors::kUnmatchedGroup : errors::kJunk);
  }

  std::size_t size() const { return size_; }

 private:
  static Part refuse(const char* message) {
    vrx_regerror(message);
    return {};
  }

  Part expression(bool in_group);
  Part branch();
  Part piece();
  Part atom();
  Part set();
  Part literal();

  void put(Byte c) {
    if (program_ != nullptr) program_[size_] = c;
    ++size_;
  }

  std::size_t emit(int opcode) {
    const std::size_t node = size_;
    put(static_cast<Byte>(opcode));
    put(0);
    put(0);
    return node;
  }

  // Puts a node before what starts at `operand`, which ends with the program so far. Links inside
  // the operand are relative and move with it.
  void insert(Opcode opcode, std::size_t operand) {
    size_ += kNodeHeader;
    if (program_ == nullptr) return;
    Byte* const at = program_ + operand;
    std::memmove(at + kNodeHeader, at, size_ - kNodeHeader - operand);
    at[0] = opcode;
    at[1] = at[2] = 0;
  }

  // Links `node`, the last of its chain, to `target`.
  void link(std::size_t node, std::size_t target) {
    if (program_ == nullptr) return;
    set_link(program_, node, program_[node] == kBack ? node - target : target - node);
  }

  // Links the last node of the chain at `node` to `target`.
  void tie(std::size_t node, std::size_t target) {
    if (program_ == nullptr) return;
    for (std::size_t next = next_of(program_, node); next != 0; next = next_of(program_, node)) {
      node = next;
    }
    link(node, target);
  }

  const Byte* at_;
  Byte* const program_;
  std::size_t size_ = 0;
  int groups_ = 1;
};

// Alternatives separated by |. The newest branch is remembered, so that adding one to thousands
// costs no walk along their chain.
Part Compiler::expression(bool in_group) {
  const int group = groups_;
  std::size_t open = 0;
  if (in_group) {
    if (groups_ == kGroups) return refuse(errors::kTooManyGroups);
    ++groups_;
    open = emit(kOpen + group);
  }
  Part whole = branch();
  if (whole.node == 0) return {};
  const std::size_t first = whole.node;
  std::size_t last = first;
  if (in_group) {
    link(open, first);
    whole.node = open;
  }
  while (*at_ == '|') {
    ++at_;
    const Part next = branch();
    if (next.node == 0) return {};
    link(last, next.node);
    last = next.node;
    whole.has_width = whole.has_width && next.has_width;
    whole.starts_with_star = whole.starts_with_star || next.starts_with_star;
  }
  const std::size_t end = emit(in_group ? kClose + group : kEnd);
  link(last, end);
  if (program_ != nullptr) {
    for (std::size_t b = first; b != end; b = next_of(program_, b)) tie(operand_of(b), end);
  }
  if (!in_group) return whole;
  if (*at_ != ')') return refuse(errors::kUnmatchedGroup);
  ++at_;
  return whole;
}

// Pieces up to the next | or ), or a NOTHING.
Part Compiler::branch() {
  Part whole;
  whole.node = emit(kBranch);
  std::size_t last = 0;
  while (*at_ != '\0' && *at_ != '|' && *at_ != ')') {
    const Part next = piece();
    if (next.node == 0) return {};
    whole.has_width = whole.has_width || next.has_width;
    if (last == 0) {
      whole.starts_with_star = next.starts_with_star;
    } else {
      tie(last, next.node);
    }
    last = next.node;
  }
  if (last == 0) emit(kNothing);
  return whole;
}

// An atom and its repetition. Repeated groups become loops of branches that share the tail of the
// chain; the NOTHING after an empty branch is what its chain is tied by.
Part Compiler::piece() {
  const Part operand = atom();
  if (operand.node == 0) return {};
  const Byte repetition = *at_;
  if (!is_repetition(repetition)) return operand;
  if (!operand.has_width && repetition != '?') return refuse(errors::kEmptyOperand);

  const std::size_t x = operand.node;
  if (repetition == '?') {  // either x or nothing
    insert(kBranch, x);
    tie(x, emit(kBranch));
    const std::size_t end = emit(kNothing);
    tie(x, end);
    tie(operand_of(x), end);
  } else if (operand.is_simple) {
    insert(repetition == '*' ? kStar : kPlus, x);
  } else if (repetition == '*') {  // either x and back to here, or nothing
    insert(kBranch, x);
    const std::size_t back = emit(kBack);
    tie(operand_of(x), back);
    link(back, x);
    tie(x, emit(kBranch));
    tie(x, emit(kNothing));
  } else {  // x, then either back to it or nothing
    const std::size_t again = emit(kBranch);
    tie(x, again);
    link(emit(kBack), x);
    link(again, emit(kBranch));
    tie(again, emit(kNothing));
  }
  ++at_;
  if (is_repetition(*at_)) return refuse(errors::kNested);
  return {x, repetition == '+', false, repetition == '*'};
}

Part Compiler::atom() {
  switch (*at_++) {
    case '^':
      return {emit(kBol)};
    case '$':
      return {emit(kEol)};
    case '.':
      return {emit(kAny), true, true};
    case '[':
      return set();
    case '(':
      return expression(true);
    case '\0':
    case '|':
    case ')':
      return refuse(errors::kNoAtom);  // branch() stops before these
    case '?':
    case '+':
    case '*':
      return refuse(errors::kNoOperand);
    case '\\': {
      if (*at_ == '\0') return refuse(errors::kTrailingEscape);
      const Part escaped = {emit(kExactly), true, true};
      put(*at_++);
      put('\0');
      return escaped;
    }
    default:
      --at_;
      return literal();
  }
}

// A set, after its opening bracket.
Part Compiler::set() {
  const bool is_complement = *at_ == '^';
  if (is_complement) ++at_;
  const Part whole = {emit(is_complement ? kAnyBut : kAnyOf), true, true};
  if (*at_ == ']' || *at_ == '-') put(*at_++);
  while (*at_ != '\0' && *at_ != ']') {
    if (*at_ != '-' || at_[1] == ']' || at_[1] == '\0') {
      put(*at_++);
      continue;
    }
    // The byte before the hyphen is a member already, be it the end of another range.
    const unsigned low = at_[-1];
    const unsigned high = at_[1];
    if (low > high) return refuse(errors::kInvalidRange);
    for (unsigned c = low + 1; c <= high; ++c) put(static_cast<Byte>(c));
    at_ += 2;
  }
  put('\0');
  if (*at_ != ']') return refuse(errors::kUnmatchedSet);
  ++at_;
  return whole;
}

// The longest run of ordinary bytes, less its last one where that is to be repeated alone.
Part Compiler::literal() {
  std::size_t length = std::strcspn(chars(at_), kMeta);
  if (length == 0) return refuse(errors::kNoLiteral);
  if (length > 1 && is_repetition(at_[length])) --length;
  const Part whole = {emit(kExactly), true, length == 1};
  for (const Byte* const end = at_ + length; at_ != end; ++at_) put(*at_);
  put('\0');
  return whole;
}

// What lets the matcher skip most starts, when there is a single top-level branch.
void find_shortcuts(VstringRegex* regex, bool starts_with_star) {
  const Byte* const program = regex->program;
  constexpr std::size_t kFirstBranch = 1;
  if (program[next_of(program, kFirstBranch)] != kEnd) return;
  const std::size_t first = operand_of(kFirstBranch);
  if (program[first] == kExactly) regex->first_byte = program[operand_of(first)];
  if (program[first] == kBol) regex->anchored = 1;
  if (!starts_with_star) return;
  std::size_t longest = 0;
  for (std::size_t node = first; node != 0; node = next_of(program, node)) {
    if (program[node] != kExactly) continue;
    const char* const literal = chars(program + operand_of(node));
    const std::size_t length = std::strlen(literal);
    if (length < longest) continue;
    longest = length;
    regex->must = literal;
    regex->must_length = static_cast<std::int32_t>(length);
  }
}

}  // namespace
}  // namespace vstring::regex

VstringRegex* vrx_regcomp(const char* pattern) {
  using namespace vstring::regex;
  const auto refuse = [](const char* message) -> VstringRegex* {
    vrx_regerror(message);
    return nullptr;
  };
  if (pattern == nullptr) return refuse(errors::kNullArgument);
  Compiler measuring(pattern, nullptr);
  if (measuring.pattern().node == 0) return nullptr;
  const std::size_t size = measuring.size();
  if (size > kMaxProgram) return refuse(errors::kTooBig);
  auto* const regex = static_cast<VstringRegex*>(std::calloc(1, sizeof(VstringRegex) + size));
  if (regex == nullptr) return refuse(errors::kOutOfSpace);
  regex->size = static_cast<std::uint16_t>(size);
  const Part whole = Compiler(pattern, regex->program).pattern();
  find_shortcuts(regex, whole.starts_with_star);
  return regex;
}
