// Entry points: hd, leedist, leewt, prefixdist, suffixdist, levenshtein, editdist.
#include "host/args.h"
#include "host/measure.h"
#include "host/result.h"
#include "words/likeness/distance.h"
#include "words/likeness/levenshtein.h"

using namespace vstring;

HostObject vstring_hd(const HostTable* host, HostObject argseq) {
  return measured<words::hamming_distance>(host, argseq);
}

HostObject vstring_prefixdist(const HostTable* host, HostObject argseq) {
  return measured<words::prefix_distance>(host, argseq);
}

HostObject vstring_suffixdist(const HostTable* host, HostObject argseq) {
  return measured<words::suffix_distance>(host, argseq);
}

constexpr Signature kLeedist = {2, {{}, {nullptr, "strings must be of equal length"}}};

HostObject vstring_leedist(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kLeedist);
  const Bytes s = args.text(1);
  const Bytes t = args.text(2);
  if (s.size() != t.size()) args.refuse(2);
  return new_integer(args, words::lee_distance(s, t));
}

HostObject vstring_leewt(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  return new_integer(args, words::lee_weight(args.text(1)));
}

HostObject vstring_levenshtein(const HostTable* host, HostObject argseq) {
  return measured<[](Bytes s, Bytes t) { return words::levenshtein(s, t); }>(host, argseq);
}

HostObject vstring_editdist(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  const Bytes t = args.text(2);
  const Result<std::size_t> edits = words::levenshtein(s, t);
  args.require(edits.status());
  // What the command is defined to answer for words that are more than half different.
  if (2 * *edits > s.size() + t.size()) args.raise(Status::out_of_memory);
  return new_integer(args, s.size() + t.size() - 2 * *edits);
}
