#include "search/many/scan_table.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>

#include "runtime/memory.h"
#include "search/many/trie.h"

namespace vstring::search {
namespace {

// Rows are kept to what a second-level cache holds.
constexpr std::size_t kRowCells = std::size_t{1} << 18;

template <typename T>
bool pool_array(VstringPool* pool, T*& array, std::size_t n) {
  array = static_cast<T*>(pool_alloc0(pool, n, sizeof(T)));
  return array != nullptr;
}

// Numbers the nodes breadth first: order[state] is its node, null for the root.
void number_states(const VstringAutomaton& automaton, ScanTable& table,
                   VstringAutomatonNode** order) {
  StateNumber count = 1;
  std::uint32_t patterns = 0;
  order[0] = nullptr;
  table.links[0].first_child = count;
  for (unsigned byte = 0; byte < 256; ++byte) {
    if (automaton.root[byte] == nullptr) continue;
    table.label[count] = static_cast<Byte>(byte);
    order[count++] = automaton.root[byte];
  }
  for (StateNumber state = 1; state < count; ++state) {
    table.links[state].first_child = count;
    if (const VstringOutput* const output = order[state]->output) {
      table.patterns[++patterns] = pattern_of(*output);
      table.links[state].pattern = patterns;
    }
    for (const VstringEdge* edge = order[state]->edges; edge != nullptr; edge = edge->next) {
      table.label[count] = edge->byte;
      order[count++] = edge->target;
    }
  }
  table.links[count].first_child = count;
}

// Gives the bytes that occur in labels classes from 1 on; returns how many classes there are.
std::size_t classify(ScanTable& table, std::size_t states) {
  bool used[256] = {};
  for (std::size_t state = 1; state < states; ++state) used[table.label[state]] = true;
  std::size_t classes = 1;
  for (unsigned byte = 0; byte < 256; ++byte) {
    table.class_of[byte] = used[byte] ? static_cast<Byte>(classes++) : 0;
  }
  return classes;
}

// Completes the children of `state`, whose own links are complete: failure states have smaller
// numbers, so everything that their links lead to is there already.
void complete_children(ScanTable& table, StateNumber state) {
  const std::size_t row = std::size_t{state} << table.row_shift;
  const bool has_row = state < table.row_count;
  const StateNumber fail = table.links[state].fail & ~kHit;
  if (has_row && state > 0) {
    std::memcpy(table.rows + row, table.rows + (std::size_t{fail} << table.row_shift),
                sizeof(StateNumber) << table.row_shift);
  }
  for (StateNumber child = table.links[state].first_child;
       child < table.links[state + 1].first_child; ++child) {
    const Byte byte = table.label[child];
    // The root's row still lacks its children, which fail to the root itself.
    const StateNumber f = state == 0 ? 0 : step(table, fail, byte) & ~kHit;
    const StateLinks& up = table.links[f];
    StateLinks& links = table.links[child];
    links.inherited = up.pattern != 0 ? 2 * f + 1 : up.inherited != 0 ? up.inherited ^ 1 : 0;
    const bool hit = links.pattern != 0 || links.inherited != 0;
    links.fail = f | (hit ? kHit : 0);
    if (has_row) table.rows[row | table.class_of[byte]] = child | (hit ? kHit : 0);
  }
}

}  // namespace

const ScanTable* prepare_table(VstringAutomaton* automaton) {
  const NodeCounts& counts = pool_of(*automaton)->counts;
  VstringPool* const pool = automaton->pool;
  const std::size_t states = counts.nodes + 1;
  if (states > kMaxStates) return nullptr;
  Buffer<VstringAutomatonNode*> order;
  ScanTable* table = nullptr;
  if (!order.resize(states) || !pool_array(pool, table, 1) ||
      !pool_array(pool, table->links, states + 1) ||
      !pool_array(pool, table->label, states + kLabelPadding) ||
      !pool_array(pool, table->patterns, counts.patterns + 1)) {
    return nullptr;
  }
  number_states(*automaton, *table, order.data());
  for (std::size_t depth = 1; depth < std::size(table->depth_begin); ++depth) {
    table->depth_begin[depth] = table->links[table->depth_begin[depth - 1]].first_child;
  }
  if (!table->skips.prepare(pool, {table->patterns + 1, counts.patterns})) return nullptr;

  const std::size_t row_length = std::bit_ceil(classify(*table, states));
  table->row_shift = static_cast<std::uint32_t>(std::countr_zero(row_length));
  table->row_count = static_cast<StateNumber>(std::min(states, kRowCells / row_length));
  if (!pool_array(pool, table->rows, table->row_count * row_length)) return nullptr;
  for (StateNumber state = 0; state < states; ++state) complete_children(*table, state);
  for (StateNumber state = 1; state < states; ++state) {
    order[state]->fail = order[table->links[state].fail & ~kHit];
  }
  return table;
}

}  // namespace vstring::search
