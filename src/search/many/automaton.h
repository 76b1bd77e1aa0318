// The Aho-Corasick automaton behind ac_*, for use within the library: counted texts, and a visitor
// in place of a C callback.
//
// Patterns go into a trie (search/many/trie.h); preparing it sets the failure links and derives the
// table that texts are scanned with (search/many/scan_table.h).
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "runtime/memory.h"
#include "runtime/status.h"
#include "search/many/pattern.h"
#include "search/many/scan.h"
#include "search/many/trie.h"

namespace vstring::search {

// Scans with a prepared automaton: visit(pattern, end) as for scan().
template <typename Visit>
void search_text(const VstringAutomaton& automaton, Bytes text, Visit visit) {
  scan(*pool_of(automaton)->table, text, visit);
}

// Appends every match of a prepared automaton.
Status collect(const VstringAutomaton& automaton, Bytes text, HeldArray<PatternMatch>& matches);

}  // namespace vstring::search
