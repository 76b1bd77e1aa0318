#include "lexiva/commands.h"

#include <algorithm>
#include <initializer_list>

namespace velmor::lexiva {
namespace {

using Rows = std::initializer_list<Command>;

constexpr Rows kEditing = {
#include "lexiva/rows/editing.inc"
};
constexpr Rows kCharacters = {
#include "lexiva/rows/characters.inc"
};
constexpr Rows kEncodings = {
#include "lexiva/rows/encodings.inc"
};
constexpr Rows kJoining = {
#include "lexiva/rows/joining.inc"
};
constexpr Rows kFinding = {
#include "lexiva/rows/finding.inc"
};
constexpr Rows kProcedures = {
#include "lexiva/rows/procedures.inc"
};
constexpr Rows kRegex = {
#include "lexiva/rows/regex.inc"
};
constexpr Rows kWords = {
#include "lexiva/rows/words.inc"
};
constexpr Rows kSequences = {
#include "lexiva/rows/sequences.inc"
};
constexpr Rows kDistances = {
#include "lexiva/rows/distances.inc"
};
constexpr Rows kRandom = {
#include "lexiva/rows/random.inc"
};
constexpr Rows kLanguage = {
#include "lexiva/rows/language.inc"
};
constexpr Rows kInternal = {
#include "lexiva/rows/internal.inc"
};

constexpr std::span<const Command> span_of(Rows rows) { return {rows.begin(), rows.size()}; }

constexpr Family kFamilies[] = {
    {"editing", "Substrings and editing", span_of(kEditing)},
    {"characters", "Character classes, case and translation", span_of(kCharacters)},
    {"encodings", "Encodings and escapes", span_of(kEncodings)},
    {"joining", "Joining, splitting, orders", span_of(kJoining)},
    {"finding", "Searching and replacing", span_of(kFinding)},
    {"procedures", "Procedures over strings", span_of(kProcedures)},
    {"regex", "Regular expressions and wildcards", span_of(kRegex)},
    {"words", "Combinatorics on words", span_of(kWords)},
    {"sequences", "Sequences, alignment, statistics", span_of(kSequences)},
    {"distances", "Distances and likeness", span_of(kDistances)},
    {"random", "Randomness and digests", span_of(kRandom)},
    {"language", "Layout, language, time", span_of(kLanguage)},
    {"internal", "Checks of the library itself", span_of(kInternal), false},
};

constexpr Alias kAliases[] = {
    {"Version", "version"},
    {"WildcardMatch", "wild"},
};

}  // namespace

std::span<const Family> families() { return kFamilies; }

std::span<const Alias> aliases() { return kAliases; }

const Command* find(std::string_view name) {
  for (const Alias& alias : kAliases)
    if (name == alias.name) name = alias.command;
  for (const Family& family : kFamilies) {
    const auto found = std::ranges::find(family.commands, name, &Command::name);
    if (found != family.commands.end()) return &*found;
  }
  return nullptr;
}

}  // namespace velmor::lexiva
