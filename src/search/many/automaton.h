// The Aho-Corasick automaton behind ac_*, for use within the library: counted texts, and a visitor
// in place of a C callback.
//
// Patterns go into a trie of linked nodes, of which hosts see the roots and the nodes by depth.
// Preparing it sets the failure links and derives the table that texts are scanned with.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "runtime/memory.h"
#include "runtime/status.h"
#include "search/many/many.h"
#include "search/many/scan.h"

namespace vstring::search {

// The pool of an automaton, which ac_init made: the record's users see its first member.
struct AutomatonPool {
  VstringPool pool;
  NodeCounts counts;
  const ScanTable* table;  // null from an insertion until the next preparation
};

inline AutomatonPool* pool_of(const VstringAutomaton& automaton) {
  return reinterpret_cast<AutomatonPool*>(automaton.pool);
}

// ac_insert for a pattern without zero bytes.
[[nodiscard]] bool insert(VstringAutomaton* automaton, Bytes pattern, std::int32_t number);

// Inserts the patterns under their 1-based places in the list.
[[nodiscard]] bool insert_all(VstringAutomaton* automaton, std::span<const Bytes> patterns);

// Scans with a prepared automaton: visit(pattern, end) as for scan().
template <typename Visit>
void search_text(const VstringAutomaton& automaton, Bytes text, Visit visit) {
  scan(*pool_of(automaton)->table, text, visit);
}

// Appends every match of a prepared automaton.
Status collect(const VstringAutomaton& automaton, Bytes text, HeldArray<PatternMatch>& matches);

}  // namespace vstring::search
