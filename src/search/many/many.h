// Many patterns at once: where the patterns of a list occur in a text.
//
// One pass of the automaton of A. V. Aho and M. J. Corasick, "Efficient string matching: an aid to
// bibliographic search", 1975 (search/many/automaton.h). Matches come by the position of their last
// byte; those that end together come in the order of the automaton's output chain. A pattern that
// is repeated in the list counts where it stands first; an empty one never matches.
//
// Time and memory are linear in the patterns, the text and the number of matches.
#pragma once
#include <span>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"
#include "search/many/pattern.h"

namespace vstring::search {

// Status::out_of_memory: memory failed while the patterns were taken in or matches collected;
// Status::not_prepared: while the automaton was completed.

// The first match.
Result<PatternMatch> first_of(std::span<const Bytes> patterns, Bytes text);

// Appends every match to `matches`.
Status all_of(std::span<const Bytes> patterns, Bytes text, HeldArray<PatternMatch>& matches);

}  // namespace vstring::search
