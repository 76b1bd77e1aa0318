#include "search/many/automaton.h"

#include <cstdlib>
#include <cstring>

using namespace vstring;
using namespace vstring::search;

namespace {

constexpr std::int32_t kFirstCapacity = 10;

template <typename T>
T* make(VstringAutomaton* automaton, std::size_t n = 1) {
  return static_cast<T*>(pool_alloc0(automaton->pool, n, sizeof(T)));
}

// Room in the depth lists for nodes at `depth`.
bool reserve_depth(VstringAutomaton* automaton, std::size_t depth) {
  const std::int32_t old = automaton->capacity;
  if (depth < static_cast<std::size_t>(old)) return true;
  if (old > INT32_MAX / 2) return false;
  auto* const grown = make<VstringAutomatonNode*>(automaton, 2 * static_cast<std::size_t>(old));
  if (grown == nullptr) return false;
  std::memcpy(grown, automaton->depth, sizeof(*grown) * static_cast<std::size_t>(old));
  automaton->depth = grown;
  automaton->capacity = 2 * old;
  return true;
}

// A new node, the first one in the list of its depth.
VstringAutomatonNode* add_node(VstringAutomaton* automaton, std::size_t depth) {
  if (!reserve_depth(automaton, depth)) return nullptr;
  auto* const node = make<VstringAutomatonNode>(automaton);
  if (node == nullptr) return nullptr;
  node->next = automaton->depth[depth];
  automaton->depth[depth] = node;
  ++pool_of(*automaton)->counts.nodes;
  return node;
}

VstringAutomatonNode* target_of(const VstringAutomatonNode* node, Byte byte) {
  for (const VstringEdge* edge = node->edges; edge != nullptr; edge = edge->next) {
    if (edge->byte == byte) return edge->target;
  }
  return nullptr;
}

// The child of `node` under `byte`, at `depth`; made when there is none.
VstringAutomatonNode* child_at(VstringAutomaton* automaton, VstringAutomatonNode* node,
                               std::size_t depth, Byte byte, std::int32_t end) {
  VstringAutomatonNode* const known = target_of(node, byte);
  if (known != nullptr) return known;
  auto* const edge = make<VstringEdge>(automaton);
  if (edge == nullptr) return nullptr;
  VstringAutomatonNode* const child = add_node(automaton, depth);
  if (child == nullptr) return nullptr;
  *edge = {node->edges, child, byte, end};
  node->edges = edge;
  return child;
}

VstringOutput* make_output(VstringAutomaton* automaton, Bytes pattern, std::int32_t number) {
  auto* const output = make<VstringOutput>(automaton);
  char* const text = make<char>(automaton, pattern.size() + 1);
  if (output == nullptr || text == nullptr) return nullptr;
  std::memcpy(text, pattern.data(), pattern.size());
  *output = {nullptr, text, number, pattern.size()};
  ++pool_of(*automaton)->counts.patterns;
  return output;
}

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

void destroy(VstringAutomaton* automaton) {
  pool_destroy(automaton->pool);
  std::free(automaton->pool);
  *automaton = {};
  automaton->capacity = -1;
}

}  // namespace

bool vstring::search::insert(VstringAutomaton* automaton, Bytes pattern, std::int32_t number) {
  if (automaton == nullptr || automaton->pool == nullptr) return false;
  if (pattern.empty()) return true;
  pool_of(*automaton)->table = nullptr;
  VstringAutomatonNode*& root = automaton->root[pattern[0]];
  if (root == nullptr) root = add_node(automaton, 1);
  VstringAutomatonNode* node = root;
  for (std::size_t i = 1; node != nullptr && i < pattern.size(); ++i) {
    const std::int32_t end = i + 1 == pattern.size() ? number : 0;
    node = child_at(automaton, node, i + 1, pattern[i], end);
  }
  if (node == nullptr) return false;
  if (node->output == nullptr) node->output = make_output(automaton, pattern, number);
  return node->output != nullptr;
}

bool vstring::search::insert_all(VstringAutomaton* automaton, std::span<const Bytes> patterns) {
  if (patterns.size() > INT32_MAX) return false;
  std::int32_t number = 0;
  for (const Bytes pattern : patterns) {
    if (!insert(automaton, pattern, ++number)) return false;
  }
  return true;
}

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

VstringAutomaton* ac_alloc() {
  auto* const automaton = static_cast<VstringAutomaton*>(std::calloc(1, sizeof(VstringAutomaton)));
  if (ac_init(automaton) != nullptr) return automaton;
  std::free(automaton);
  return nullptr;
}

VstringAutomaton* ac_init(VstringAutomaton* automaton) {
  if (automaton == nullptr) return nullptr;
  destroy(automaton);
  auto* const pool = static_cast<AutomatonPool*>(std::calloc(1, sizeof(AutomatonPool)));
  if (pool == nullptr) return nullptr;
  automaton->pool = &pool->pool;
  if (pool_init(automaton->pool) != nullptr) {
    automaton->depth = make<VstringAutomatonNode*>(automaton, kFirstCapacity);
  }
  if (automaton->depth == nullptr) {
    destroy(automaton);
    return nullptr;
  }
  automaton->capacity = kFirstCapacity;
  return automaton;
}

int ac_insert(VstringAutomaton* automaton, const char* pattern, std::int32_t number) {
  return pattern != nullptr && insert(automaton, bytes_of(pattern), number) ? 1 : 0;
}

int ac_prep(VstringAutomaton* automaton) {
  if (automaton == nullptr || automaton->pool == nullptr) return 0;
  AutomatonPool* const pool = pool_of(*automaton);
  if (pool->table == nullptr) pool->table = prepare_table(automaton, pool->counts);
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

void ac_free(VstringAutomaton* automaton) {
  if (automaton != nullptr) destroy(automaton);
}
