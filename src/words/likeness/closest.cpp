#include "words/likeness/closest.h"

#include <algorithm>
#include <limits>

#include "bytes/edit_column.h"
#include "words/likeness/damerau.h"
#include "words/likeness/distance.h"
#include "words/likeness/indel.h"
#include "words/likeness/jaro.h"
#include "words/likeness/levenshtein.h"
#include "words/likeness/osa.h"
#include "words/likeness/ratio.h"
#include "words/likeness/stripe.h"
#include "words/likeness/tokens.h"

namespace vstring::words {
namespace {

constexpr double kAny = std::numeric_limits<double>::infinity();

// How far a text is: the distance, or the likeness with its sign changed.
class Comparison {
 public:
  Comparison(Bytes word, Metric metric)
      : word_(word), metric_(metric), rows_(is_short() ? word : Bytes{}) {}

  // Exact if it is below `bound`, else anything that is not.
  Result<double> farness(Bytes text, double bound) const {
    if (least_farness(text) >= bound) return bound;
    if (is_short() && metric_ == Metric::levenshtein) return short_distance(text, bound);
    if (is_short() && metric_ == Metric::indel) {
      return static_cast<double>(word_.size() + text.size() - 2 * short_common(text));
    }
    if (is_short() && metric_ == Metric::ratio) {
      return -ratio_of(short_common(text), word_.size() + text.size());
    }
    if (metric_ == Metric::levenshtein) return number(levenshtein(word_, text, limit_below(bound)));
    const Result<double> value = plain(text);
    return value.ok() && !is_distance(metric_) ? -*value : value;
  }

 private:
  bool is_short() const { return !word_.empty() && word_.size() <= EditColumn::kRows; }

  // The greatest distance below a bound, which is a whole number or infinite.
  static std::size_t limit_below(double bound) {
    return bound == kAny ? INT64_MAX / 2 : static_cast<std::size_t>(bound) - 1;
  }

  // What the lengths leave open.
  double least_farness(Bytes text) const {
    const std::size_t both = word_.size() + text.size();
    const std::size_t shorter = std::min(word_.size(), text.size());
    if (is_distance(metric_)) return static_cast<double>(both - 2 * shorter);
    if (metric_ == Metric::ratio) return -ratio_of(shorter, both);
    return -kAny;
  }

  // Levenshtein's distance, left off when the last row cannot come down to the bound any more.
  double short_distance(Bytes text, double bound) const {
    EditColumn column;
    auto distance = static_cast<std::int64_t>(word_.size());
    const auto limit = static_cast<std::int64_t>(limit_below(bound));
    auto left = static_cast<std::int64_t>(text.size());
    for (const Byte c : text) {
      distance += column.advance(rows_[c][0], {1, 0}, word_.size() - 1).value();
      if (distance - --left > limit) return bound;
    }
    return static_cast<double>(distance);
  }

  std::size_t short_common(Bytes text) const {
    LcsColumn column;
    std::size_t length = 0;
    for (const Byte c : text) length += column.advance(rows_[c][0], 0, 0);
    return length;
  }

  static Result<double> number(const Result<std::size_t>& result) {
    if (!result.ok()) return result.status();
    return static_cast<double>(*result);
  }

  Result<double> plain(Bytes text) const {
    switch (metric_) {
      case Metric::levenshtein:  // left off early, above
      case Metric::damerau:
        return number(damerau_distance(word_, text));
      case Metric::osa:
        return number(optimal_string_alignment(word_, text));
      case Metric::indel:
        return number(indel_distance(word_, text));
      case Metric::hamming:
        return number(hamming_distance(word_, text));
      case Metric::jaro:
        return jaro(word_, text);
      case Metric::jaro_winkler:
        return jaro_winkler(word_, text);
      case Metric::ratio:
        return ratio(word_, text);
      case Metric::partial_ratio:
        return partial_ratio(word_, text);
      case Metric::token_sort:
        return token_sort_ratio(word_, text);
      case Metric::token_set:
        break;
    }
    return token_set_ratio(word_, text);
  }

  Bytes word_;
  Metric metric_;
  LetterRows<1> rows_;
};

}  // namespace

Status nearest_texts(Bytes word, std::span<const Bytes> texts, std::size_t k, Metric metric,
                     HeldArray<Neighbour>& nearest) {
  const Comparison comparison(word, metric);
  // A heap with the farthest one on top; its values are farnesses until the end.
  const auto is_nearer = [](const Neighbour& a, const Neighbour& b) {
    return a.value != b.value ? a.value < b.value : a.number < b.number;
  };
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool is_full = nearest.size() == k;
    const Result<double> farness = comparison.farness(texts[i], is_full ? nearest[0].value : kAny);
    if (!farness.ok()) return farness.status();
    if (is_full) {
      if (*farness >= nearest[0].value) continue;
      std::pop_heap(nearest.begin(), nearest.end(), is_nearer);
      nearest.pop_back();
    }
    if (!nearest.push_back({i, *farness})) return Status::out_of_memory;
    std::push_heap(nearest.begin(), nearest.end(), is_nearer);
  }
  std::sort_heap(nearest.begin(), nearest.end(), is_nearer);
  if (!is_distance(metric)) {
    for (Neighbour& neighbour : nearest) neighbour.value = -neighbour.value;
  }
  return Status::ok;
}

}  // namespace vstring::words
