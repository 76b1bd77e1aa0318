// Orders of words, and sorting of their bytes.
//
// Three-way comparisons give -1 when s comes first, 1 when t does, 0 when the order does not tell
// them apart. All run in time linear in the shorter word, or in both where weights are summed.
#pragma once
#include <array>
#include <cstdint>
#include <optional>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::core {

// An alphabet that orders its letters as listed, instead of by code. Under one, comparisons refuse
// words whose deciding letters it lacks.
using Support = std::optional<Bytes>;

// The first byte of `letters` that has occurred before, or 0 when all differ.
Byte first_repeated(Bytes letters);

// Lexicographic order.
Result<int> lex(Bytes s, Bytes t, const Support& support);

// Lexicographic order of the words read backwards, up to where one of them ends. The empty word
// comes before all others.
Result<int> revlex(Bytes s, Bytes t, const Support& support);

// The shorter word first; equal lengths by the order above.
Result<int> shortlex(Bytes s, Bytes t, const Support& support);
Result<int> shortrevlex(Bytes s, Bytes t, const Support& support);

// Non-negative weights of the codes.
using Weights = std::array<std::int32_t, 256>;

// The lighter word first, by the sum of its letters' weights; equal sums lexicographically.
int weight_order(Bytes s, Bytes t, const Weights& weights);

// Wreath-product order: the last position, counted from the end, where the words differ decides, by
// weight and then by code; of two words one of which ends the other, the shorter comes first.
int wreath_order(Bytes s, Bytes t, const Weights& weights);

// Recursive path orders of words, read from the left and from the right.
int recursive_path_from_left(Bytes s, Bytes t);
int recursive_path_from_right(Bytes s, Bytes t);

// Whether s comes before t or equals it, byte by byte, or after mapping capitals to lower case.
bool precedes(Bytes s, Bytes t);
bool precedes_ignoring_case(Bytes s, Bytes t);

// Writes the bytes of `text` in increasing order to `out`, of the same size; they do not overlap.
// A counting sort: linear time.
void sort_bytes(Bytes text, MutableBytes out);

}  // namespace vstring::core
