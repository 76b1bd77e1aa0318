// Shows what becomes of a regular expression: its nodes, the states made of them, what is known of
// every match, and how a search in a text went. docs/slow-regex.md says how to read it.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "search/regex/matcher.h"
#include "search/regex/prepare.h"
#include "search/regex/program.h"

namespace {

using namespace vstring::regex;
using vstring::Byte;
using vstring::Bytes;
using vstring::ByteSet;

std::string shown(Byte c) {
  char text[8];
  std::snprintf(text, sizeof text, c >= ' ' && c < 127 && c != '\\' ? "%c" : "\\x%02x", c);
  return text;
}

std::string shown(Bytes literal) {
  std::string text = "\"";
  for (const Byte c : literal) text += shown(c);
  return text + "\"";
}

// With a dot for each byte that is not known.
std::string shown(const vstring::search::Needle& needle) {
  if (!needle.pattern().empty()) return shown(needle.pattern());
  const vstring::Probes& probes = needle.probes();
  std::string text(needle.size(), '.');
  for (std::size_t i = 0; i < probes.count; ++i) {
    text[probes.offsets[i]] = static_cast<char>(probes.bytes[i]);
  }
  return shown(Bytes(reinterpret_cast<const Byte*>(text.data()), text.size()));
}

// As a bracket expression with ranges; of two ways of saying it, the one with fewer members.
std::string shown(const ByteSet& set) {
  ByteSet rest = set;
  const bool is_complement = set.count() > 128;
  if (is_complement) rest.complement();
  std::string text = is_complement ? "[^" : "[";
  for (int low = 0; low < 256; ++low) {
    int high = low;
    while (high < 256 && rest.has(static_cast<Byte>(high))) ++high;
    if (high == low) continue;
    text += shown(static_cast<Byte>(low));
    if (high - low > 2) text += '-';
    if (high - low > 1) text += shown(static_cast<Byte>(high - 1));
    low = high;
  }
  return text + "]";
}

std::string node_name(Byte opcode) {
  constexpr const char* kNames[] = {"end",    "bol",  "eol",     "any",     "any of", "any but",
                                    "branch", "back", "exactly", "nothing", "star",   "plus"};
  if (is_open(opcode)) return "open " + std::to_string(opcode - kOpen);
  if (is_close(opcode)) return "close " + std::to_string(opcode - kClose);
  return kNames[opcode];
}

// Nodes lie one behind the other: the operand of a branch, star or plus is the node behind it.
void print_nodes(const VstringRegex& regex) {
  std::puts("nodes");
  const Byte* const program = regex.program;
  for (std::size_t node = 1; node < regex.size;) {
    const Byte opcode = program[node];
    std::printf("  %4zu  %s", node, node_name(opcode).c_str());
    std::size_t behind = operand_of(node);
    if (opcode == kExactly || opcode == kAnyOf || opcode == kAnyBut) {
      const Bytes operand = vstring::bytes_of(vstring::chars(program + behind));
      std::printf("  %s",
                  opcode == kExactly ? shown(operand).c_str() : shown(ByteSet(operand)).c_str());
      behind += operand.size() + 1;
    }
    if (const std::size_t next = next_of(program, node); next != 0) std::printf("  -> %zu", next);
    std::puts("");
    node = behind;
  }
}

std::string state_name(const Plan& plan, const State& state) {
  constexpr const char* kNames[] = {"fail",    "report", "accept", "bol",  "eol", "one",
                                    "literal", "branch", "save",   "star", "plus"};
  std::string name = kNames[static_cast<int>(state.op)];
  if (state.op == Op::save) return name + " " + std::to_string(state.slot);
  if (state.op == Op::literal) return name + " " + shown(plan.literal(state));
  if (consumes(state.op)) {
    name += state.test == Test::any    ? " any"
            : state.test == Test::byte ? " " + shown(Bytes(&state.byte, 1))
                                       : " " + shown(plan.sets[state.other].set());
  }
  if (state.looks) name += ", looks ahead";
  return state.takes_all ? name + ", takes all it can" : name;
}

// The states that a match can come to; a literal has one for each byte, and only its first is
// shown.
void print_states(const Plan& plan) {
  std::printf("states, from %u\n", plan.start);
  bool is_inside_literal = false;
  for (StateNumber s = 0; s < plan.state_count; ++s) {
    const State& state = plan.states[s];
    const bool is_shown = !is_inside_literal && state.op != Op::fail && state.op != Op::report;
    is_inside_literal = state.op == Op::literal && state.other > 1;
    if (!is_shown) continue;
    std::printf("  %4u  %s", s, state_name(plan, state).c_str());
    const char* separator = "  -> ";
    for (const StateNumber next : successors(state)) {
      std::printf("%s%u", separator, next);
      separator = ", ";
    }
    std::puts("");
  }
}

void print_hints(const Plan& plan) {
  const Hints& hints = plan.hints;
  const auto say = [](const char* what, const std::string& value) {
    std::printf("  %-19s%s\n", what, value.c_str());
  };
  std::puts("every match");
  if (plan.single != kFailState) say("is", "what state " + std::to_string(plan.single) + " takes");
  if (plan.anchored) say("starts", "with the text");
  if (plan.ends_with_text) say("ends", "with the text");
  if (hints.prefix.size() > 0) say("begins with", shown(hints.prefix));
  if (hints.has_first) say("begins with one of", shown(hints.first.set()));
  if (hints.prefix_length > 0)
    say("is looked for by", std::to_string(hints.prefix_length) + " bytes at a time");
  if (hints.window_length > 0)
    say("begins with", std::to_string(hints.window_length) + " of " + shown(hints.window));
  for (int i = 0; i < hints.required_count; ++i) {
    const State& required = plan.states[hints.required[i]];
    if (required.test == Test::set) {
      say("contains one of", shown(plan.sets[required.other].set()));
    } else {
      say("contains", shown(plan.literal(required)));
    }
    if (i == 0 && hints.around_length > 0)
      say("shows that by", std::to_string(hints.around_length) + " bytes at a time");
    if (i == 0 && hints.has_lead) say("has ahead of that", shown(hints.lead));
  }
}

// Goes over all matches, as replacing and splitting do, or to the first one only.
void print_search(const Plan& plan, const std::string& text, bool first_only) {
  Matcher matcher(plan, {reinterpret_cast<const Byte*>(text.data()), text.size()});
  Match match;
  std::size_t matches = 0;
  for (std::size_t at = 0; matcher.find(at, match) == Outcome::match; ++matches) {
    if (matches == 0) {
      std::printf("first match\n");
      for (int g = 0; g < kGroups; ++g) {
        if (match.has(g)) std::printf("  %d: %zu to %zu\n", g, match.start(g), match.end(g));
      }
    }
    at = match.end();
    if (first_only || match.start() == match.end() || at == text.size()) {
      ++matches;
      break;
    }
  }
  const Work work = matcher.work();
  std::printf("search in %zu bytes\n", text.size());
  if (!first_only || matches == 0) std::printf("  %-19s%zu\n", "matches", matches);
  std::printf("  %-19s%zu attempts, %zu credit\n", "backtracking", work.attempts, work.credit);
  std::printf("  %-19s%zu bytes, %zu sets of states\n", "gate", work.gated, work.sets);
  std::printf("  %-19s%zu bytes\n", "simulation", work.simulated);
  std::printf("  %-19s%s\n", "backward pass", work.two_pass ? "yes" : "no");
}

}  // namespace

int main(int count, char** arguments) {
  CLI::App app("Shows what becomes of a regular expression, and how a search with it goes.");
  std::string pattern;
  std::string text;
  std::string file;
  std::size_t times = 1;
  bool all = false;
  bool quiet = false;
  app.add_option("pattern", pattern)->required();
  app.add_option("text", text, "the text to search");
  app.add_option("-f,--file", file, "a file to search")->check(CLI::ExistingFile);
  app.add_option("-r,--repeat", times, "how often the text is repeated");
  app.add_flag("-a,--all", all, "all matches, as in replacing and splitting, not only the first");
  app.add_flag("-q,--quiet", quiet, "the search only");
  CLI11_PARSE(app, count, arguments);
  if (!file.empty()) {
    std::ifstream in(file, std::ios::binary);
    text.assign(std::istreambuf_iterator<char>(in), {});
  }
  std::string whole;
  for (std::size_t i = 0; i < times; ++i) whole += text;

  VstringRegex* const regex = vrx_regcomp(pattern.c_str());
  Plan* const plan = regex == nullptr ? nullptr : make_plan(*regex);
  if (plan == nullptr) {
    std::fprintf(stderr, "%s\n", regex == nullptr ? vrx_regerror(nullptr) : "out of memory");
    std::free(regex);
    return 1;
  }
  if (!quiet) {
    print_nodes(*regex);
    print_states(*plan);
    print_hints(*plan);
  }
  if (!whole.empty()) print_search(*plan, whole, !all);
  std::free(plan);
  std::free(regex);
  return 0;
}
