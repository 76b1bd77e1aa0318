#include "search/many/trie.h"

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

void destroy(VstringAutomaton* automaton) {
  pool_destroy(automaton->pool);
  std::free(automaton->pool);
  *automaton = {};
  automaton->capacity = -1;
}

}  // namespace

VstringAutomatonNode* vstring::search::target_of(const VstringAutomatonNode* node, Byte byte) {
  for (const VstringEdge* edge = node->edges; edge != nullptr; edge = edge->next) {
    if (edge->byte == byte) return edge->target;
  }
  return nullptr;
}

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

void ac_free(VstringAutomaton* automaton) {
  if (automaton != nullptr) destroy(automaton);
}
