// A second matcher for regular expressions, obviously correct and in no hurry: a syntax tree, and
// recursive backtracking with continuations, choice by choice in the order of the pattern.
#pragma once
#include <algorithm>
#include <array>
#include <bitset>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vstring_test::reference {

using Slots = std::array<std::ptrdiff_t, 20>;  // start and end of groups 0 .. 9; -1: unset

struct Node {
  enum Kind { kBol, kEol, kByte, kGroup, kRepeat } kind = kByte;
  std::bitset<256> bytes;                       // kByte
  std::vector<std::vector<Node>> alternatives;  // kGroup
  int group = 0;                                // kGroup; 0: the whole pattern
  char operation = 0;                           // kRepeat: * + ?
  std::vector<Node> operand;                    // kRepeat: one
};

class Regex {
 public:
  explicit Regex(std::string_view pattern) : pattern_(pattern) {
    root_ = group(0);
    if (error_.empty() && !at_end()) error_ = peek() == ')' ? "unmatched ()" : "junk on end";
  }

  const std::string& error() const { return error_; }  // empty when the pattern is sound

  // The leftmost match. No answer when it takes more than `steps` steps.
  std::optional<bool> search(std::string_view text, Slots& slots,
                             std::size_t steps = SIZE_MAX) const {
    Run run{text, slots, steps};
    for (std::size_t start = 0; start <= text.size(); ++start) {
      slots.fill(-1);
      const bool matched = run.match_group(root_, start, [&](std::size_t end) {
        slots[0] = static_cast<std::ptrdiff_t>(start);
        slots[1] = static_cast<std::ptrdiff_t>(end);
        return true;
      });
      if (run.steps_left == 0) return std::nullopt;
      if (matched) return true;
    }
    return false;
  }

 private:
  // What must match from there on: a reference to a function that outlives the call it is handed
  // to. std::function would take memory for each step.
  class Next {
   public:
    template <typename Function>
    Next(const Function& function)
        : function_(&function), call_([](const void* f, std::size_t at) {
            return (*static_cast<const Function*>(f))(at);
          }) {}
    bool operator()(std::size_t at) const { return call_(function_, at); }

   private:
    const void* function_;
    bool (*call_)(const void*, std::size_t);
  };

  struct Run {
    std::string_view text;
    Slots& slots;
    std::size_t steps_left;

    // Sets a slot unless something later in the match has set it already.
    void set(int slot, std::size_t at) {
      auto& s = slots[static_cast<std::size_t>(slot)];
      if (slot >= 2 && s < 0) s = static_cast<std::ptrdiff_t>(at);
    }

    bool match_group(const Node& node, std::size_t at, const Next& next) {
      const auto close = [&](std::size_t end) {
        if (!next(end)) return false;
        set(2 * node.group + 1, end);
        return true;
      };
      for (const auto& alternative : node.alternatives) {
        if (match_from(alternative, 0, at, close)) {
          set(2 * node.group, at);
          return true;
        }
      }
      return false;
    }

    bool match_from(const std::vector<Node>& nodes, std::size_t i, std::size_t at,
                    const Next& next) {
      if (i == nodes.size()) return next(at);
      return match(nodes[i], at,
                   [&](std::size_t end) { return match_from(nodes, i + 1, end, next); });
    }

    bool match(const Node& node, std::size_t at, const Next& next) {
      if (steps_left == 0 || --steps_left == 0) return false;
      if (node.kind == Node::kBol) return at == 0 && next(at);
      if (node.kind == Node::kEol) return at == text.size() && next(at);
      if (node.kind == Node::kGroup) return match_group(node, at, next);
      if (node.kind == Node::kByte) {
        return at < text.size() && node.bytes[static_cast<unsigned char>(text[at])] && next(at + 1);
      }
      const Node& x = node.operand[0];
      if (node.operation == '?') return match(x, at, next) || next(at);
      if (node.operation == '*') return match_any(x, at, next);
      return match(x, at, [&](std::size_t end) { return match_any(x, end, next); });
    }

    // As many x as there are, then what follows; one less; and so on down to none.
    bool match_any(const Node& x, std::size_t at, const Next& next) {
      return match(x, at, [&](std::size_t end) { return match_any(x, end, next); }) || next(at);
    }
  };

  bool at_end() const { return at_ == pattern_.size(); }
  char peek() const { return at_end() ? '\0' : pattern_[at_]; }
  bool looking_at(std::string_view any) const {
    return !at_end() && any.find(peek()) != std::string_view::npos;
  }
  Node fail(const char* message) {
    if (error_.empty()) error_ = message;
    return {};
  }

  static bool has_width(const Node& node) {
    if (node.kind != Node::kGroup) {
      return node.kind == Node::kByte || (node.kind == Node::kRepeat && node.operation == '+');
    }
    return std::ranges::all_of(node.alternatives, [](const auto& alternative) {
      return std::ranges::any_of(alternative, has_width);
    });
  }

  Node group(int number) {
    Node node;
    node.kind = Node::kGroup;
    node.group = number;
    do {
      auto& alternative = node.alternatives.emplace_back();
      while (error_.empty() && !at_end() && !looking_at("|)")) alternative.push_back(piece());
    } while (error_.empty() && peek() == '|' && ++at_ != 0);
    return node;
  }

  Node piece() {
    Node x = atom();
    if (!error_.empty() || !looking_at("*+?")) return x;
    Node node;
    node.kind = Node::kRepeat;
    node.operation = pattern_[at_++];
    if (node.operation != '?' && !has_width(x)) return fail("*+ operand could be empty");
    if (looking_at("*+?")) return fail("nested *?+");
    node.operand.push_back(std::move(x));
    return node;
  }

  Node atom() {
    Node node;
    const char c = pattern_[at_++];
    if (c == '[') return set();
    if (c == '*' || c == '+' || c == '?') return fail("?+* follows nothing");
    if (c == '(') {
      if (groups_ == 9) return fail("too many ()");
      node = group(++groups_);
      if (error_.empty() && peek() != ')') return fail("unmatched ()");
      ++at_;
    } else if (c == '^' || c == '$') {
      node.kind = c == '^' ? Node::kBol : Node::kEol;
    } else if (c == '.') {
      node.bytes.set();
    } else {
      if (c == '\\' && at_end()) return fail("trailing \\");
      node.bytes.set(static_cast<unsigned char>(c == '\\' ? pattern_[at_++] : c));
    }
    return node;
  }

  Node set() {
    Node node;
    const bool is_complement = peek() == '^';
    if (is_complement) ++at_;
    int before = -1;  // the byte that a hyphen would make a range from
    const auto add = [&](int c) { node.bytes.set(static_cast<std::size_t>(before = c)); };
    const auto take = [&] { return static_cast<unsigned char>(pattern_[at_++]); };
    if (looking_at("]-")) add(take());
    while (!at_end() && peek() != ']') {
      const bool is_last = at_ + 1 == pattern_.size() || pattern_[at_ + 1] == ']';
      if (peek() != '-' || is_last) {
        add(take());
        continue;
      }
      ++at_;
      const int low = before;
      const int high = take();
      if (low > high) return fail("invalid [] range");
      for (int c = low; c <= high; ++c) add(c);
    }
    if (at_end()) return fail("unmatched []");
    ++at_;
    if (is_complement) node.bytes.flip();
    return node;
  }

  std::string_view pattern_;
  std::size_t at_ = 0;
  int groups_ = 0;
  std::string error_;
  Node root_;
};

inline std::string expand(std::string_view replacement, std::string_view text, const Slots& slots) {
  std::string result;
  for (std::size_t i = 0; i < replacement.size(); ++i) {
    const char c = replacement[i];
    const char d = i + 1 < replacement.size() ? replacement[i + 1] : 'x';
    std::size_t group = 0;
    if (c == '\\' && (d == '&' || d == '\\')) {
      result += replacement[++i];
      continue;
    }
    if (c == '\\' && d >= '0' && d <= '9') {
      group = static_cast<std::size_t>(replacement[++i] - '0');
    } else if (c != '&') {
      result += c;
      continue;
    }
    const std::ptrdiff_t start = slots[2 * group];
    const std::ptrdiff_t end = slots[2 * group + 1];
    if (start >= 0 && end >= 0)
      result += text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
  }
  return result;
}

// What regsubs gives; no answer when it raises.
inline std::optional<std::string> replace_all(const Regex& regex, std::string_view text,
                                              std::string_view replacement) {
  std::string result;
  Slots slots;
  do {
    if (!*regex.search(text, slots)) break;
    if (slots[0] == slots[1]) return std::nullopt;
    result += text.substr(0, static_cast<std::size_t>(slots[0]));
    result += expand(replacement, text, slots);
    text.remove_prefix(static_cast<std::size_t>(slots[1]));
  } while (!text.empty());
  result += text;
  if (result.empty()) return std::nullopt;
  return result;
}

// The pieces that regsplit gives, an unmatched text as one; no answer when it raises.
inline std::optional<std::vector<std::string>> split(const Regex& regex, std::string_view text) {
  std::vector<std::string> pieces;
  Slots slots;
  while (*regex.search(text, slots)) {
    if (slots[0] == slots[1]) return std::nullopt;
    pieces.emplace_back(text.substr(0, static_cast<std::size_t>(slots[0])));
    text.remove_prefix(static_cast<std::size_t>(slots[1]));
  }
  if (!text.empty()) pieces.emplace_back(text);
  return pieces;
}

}  // namespace vstring_test::reference
