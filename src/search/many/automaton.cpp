#include "search/many/automaton.h"

using namespace vstring;
using namespace vstring::search;

namespace {

// The scan of an automaton as it stands, for one that has not been prepared since its last
// insertion: new nodes have no failure links yet.
class NodeCursor {
 public:
  explicit NodeCursor(const VstringAutomatonNode* node) : node_(node) {}
  bool has_pattern() const { return node_->output != nullptr; }
  Pattern pattern() const { return pattern_of(*node_->output); }
  bool odd() const { return odd_; }
  bool up() {
    do {
      node_ = node_->fail;
      odd_ = !odd_;
    } while (node_ != nullptr && node_->output == nullptr);
    return node_ != nullptr;
  }

 private:
  const VstringAutomatonNode* node_;
  bool odd_ = false;
};

template <typename Visit>
void search_nodes(const VstringAutomaton& automaton, Bytes text, Visit visit) {
  const VstringAutomatonNode* state = nullptr;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const VstringAutomatonNode* next = nullptr;
    for (; state != nullptr && next == nullptr; state = state->fail) {
      next = target_of(state, text[i]);
    }
    state = next != nullptr ? next : automaton.root[text[i]];
    if (state == nullptr) continue;
    const auto visit_here = [&](const Pattern& pattern) { return visit(pattern, i + 1); };
    if (!visit_outputs(NodeCursor(state), visit_here)) return;
  }
}

}  // namespace

Status vstring::search::collect(const VstringAutomaton& automaton, Bytes text,
                                HeldArray<PatternMatch>& matches) {
  Status status = Status::ok;
  search_text(automaton, text, [&](const Pattern& pattern, std::size_t end) {
    if (matches.push_back({end - pattern.length, pattern.number})) return true;
    status = Status::out_of_memory;
    return false;
  });
  return status;
}

int ac_prep(VstringAutomaton* automaton) {
  if (automaton == nullptr || automaton->pool == nullptr) return 0;
  AutomatonPool* const pool = pool_of(*automaton);
  if (pool->table == nullptr) pool->table = prepare_table(automaton);
  return pool->table != nullptr ? 1 : 0;
}

std::int64_t ac_search(VstringAutomaton* automaton, const char* text,
                       int (*fn)(void* context, const char* pattern, const char* at,
                                 std::int32_t number),
                       void* context) {
  if (automaton == nullptr || automaton->pool == nullptr || text == nullptr || fn == nullptr) {
    return 0;
  }
  std::int64_t calls = 0;
  const auto visit = [&](const Pattern& pattern, std::size_t end) {
    ++calls;
    return fn(context, pattern.text, text + (end - pattern.length), pattern.number) != 0;
  };
  if (pool_of(*automaton)->table != nullptr) {
    search_text(*automaton, bytes_of(text), visit);
  } else {
    search_nodes(*automaton, bytes_of(text), visit);
  }
  return calls;
}
