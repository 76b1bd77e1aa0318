// Pattern dictionaries: automata that stay from one call to the next under a small number.
//
// Dictionary 0 is the builtin one (search/many/builtin_words.h), 1 to 511 are made from lists. What
// they hold lives until they are freed, outside the working memory of calls.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "runtime/status.h"

namespace vstring::search {

inline constexpr std::int32_t kDictionaries = 512;

// The automaton of dictionary `id`, 0 to 511; null while the slot is free, or the builtin
// dictionary not built.
const VstringAutomaton* dictionary(std::int32_t id);

// The lowest free number from 1 on; 0 when all are taken.
std::int32_t free_dictionary();

// Build the automaton of a free slot: nothing is left of it when memory fails.
Status build_dictionary(std::int32_t id, std::span<const Bytes> words);
Status build_builtin_dictionary();

// Destroys the automaton, if there is one, and frees the slot.
void clear_dictionary(std::int32_t id);
void clear_dictionaries();

}  // namespace vstring::search
