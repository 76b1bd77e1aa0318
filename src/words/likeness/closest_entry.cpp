// Entry point: closest.
#include "host/args.h"
#include "host/result.h"
#include "host/texts.h"
#include "words/likeness/closest.h"

using namespace vstring;

// In the order of words::Metric.
constexpr const char* kMetrics[] = {
    "levenshtein", "damerau", "osa",          "indel",     "hamming",  "jaro",
    "jarowinkler", "ratio",   "partialratio", "tokensort", "tokenset",
};

constexpr Signature kClosest = {2, {{}, {}, {}, {nullptr, "unrecognised metric `%1'"}}};

HostObject vstring_closest(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kClosest);
  const Bytes word = args.text(1);
  const Elements elements = args.strings(2);
  const auto k = static_cast<std::size_t>(args.has(3) ? args.positive(3) : 1);
  const auto metric = static_cast<words::Metric>(args.has(4) ? args.choice(4, kMetrics) : 0);

  HeldArray<Bytes> texts;
  args.require(texts_of(elements, texts));
  HeldArray<words::Neighbour> nearest;
  args.require(words::nearest_texts(word, texts.view(), k, metric, nearest));
  texts.free();
  const HostObject list = new_list(args, nearest.size(), [&](std::size_t i) {
    const double value = nearest[i].value;
    return new_list_of(
        args, {elements[nearest[i].number], words::is_distance(metric)
                                                ? new_integer(args, static_cast<std::size_t>(value))
                                                : host->HostNewFloat(value)});
  });
  nearest.free();
  return list;
}
