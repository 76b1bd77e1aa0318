// The trie of linked nodes that the patterns of an automaton go into: hosts see its roots, and its
// nodes by depth.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "host/vstring.h"

namespace vstring::search {

struct NodeCounts {
  std::size_t nodes;
  std::size_t patterns;  // nodes with an output
};

struct ScanTable;

// The pool of an automaton, which ac_init made: the record's users see its first member.
struct AutomatonPool {
  VstringPool pool;
  NodeCounts counts;
  const ScanTable* table;  // null from an insertion until the next preparation
};

inline AutomatonPool* pool_of(const VstringAutomaton& automaton) {
  return reinterpret_cast<AutomatonPool*>(automaton.pool);
}

// The child of `node` under `byte`, or null.
VstringAutomatonNode* target_of(const VstringAutomatonNode* node, Byte byte);

// ac_insert for a pattern without zero bytes.
[[nodiscard]] bool insert(VstringAutomaton* automaton, Bytes pattern, std::int32_t number);

// Inserts the patterns under their 1-based places in the list.
[[nodiscard]] bool insert_all(VstringAutomaton* automaton, std::span<const Bytes> patterns);

}  // namespace vstring::search
