// The texts nearest to a word.
#pragma once
#include <cstddef>
#include <span>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::words {

// Distances first: less is nearer. Of the others, more is.
enum class Metric {
  levenshtein,
  damerau,
  osa,
  indel,
  hamming,
  jaro,
  jaro_winkler,
  ratio,
  partial_ratio,
  token_sort,
  token_set,
};

inline bool is_distance(Metric metric) { return metric < Metric::jaro; }

struct Neighbour {
  std::size_t number;  // of the text
  double value;        // what the metric gives; a distance is a whole number
};

// Appends the k nearest texts, or all, nearest first; equally near ones in the order of the list.
// The word is made ready once. A comparison is left out, or left off, as soon as the text cannot be
// among the k nearest, so that one costs no more than alone. Fails only for want of memory.
Status nearest_texts(Bytes word, std::span<const Bytes> texts, std::size_t k, Metric metric,
                     HeldArray<Neighbour>& nearest);

}  // namespace vstring::words
