#include "search/many/many.h"

#include "search/many/automaton.h"

namespace vstring::search {
namespace {

// The automaton of one search.
class ListAutomaton {
 public:
  explicit ListAutomaton(std::span<const Bytes> patterns) {
    if (ac_init(&automaton_) == nullptr || !insert_all(&automaton_, patterns)) return;
    status_ = ac_prep(&automaton_) != 0 ? Status::ok : Status::not_prepared;
  }
  ~ListAutomaton() { ac_free(&automaton_); }
  ListAutomaton(const ListAutomaton&) = delete;
  ListAutomaton& operator=(const ListAutomaton&) = delete;

  Status status() const { return status_; }
  const VstringAutomaton& operator*() const { return automaton_; }

 private:
  VstringAutomaton automaton_ = {};
  Status status_ = Status::out_of_memory;
};

}  // namespace

Result<PatternMatch> first_of(std::span<const Bytes> patterns, Bytes text) {
  const ListAutomaton automaton(patterns);
  if (automaton.status() != Status::ok) return automaton.status();
  PatternMatch first = {0, 0};
  search_text(*automaton, text, [&](const Pattern& pattern, std::size_t end) {
    first = {end - pattern.length, pattern.number};
    return false;
  });
  return first;
}

Status all_of(std::span<const Bytes> patterns, Bytes text, HeldArray<PatternMatch>& matches) {
  const ListAutomaton automaton(patterns);
  if (automaton.status() != Status::ok) return automaton.status();
  return collect(*automaton, text, matches);
}

}  // namespace vstring::search
