// Entry points: damerau, osa, indel, jaro, jarowinkler, ratio, partialratio, tokensort, tokenset,
// cosine.
#include "host/args.h"
#include "host/result.h"
#include "words/likeness/damerau.h"
#include "words/likeness/indel.h"
#include "words/likeness/jaro.h"
#include "words/likeness/osa.h"
#include "words/likeness/qgrams.h"
#include "words/likeness/ratio.h"
#include "words/likeness/tokens.h"

using namespace vstring;

namespace {

HostObject distance(const HostTable* host, HostObject argseq,
                    Result<std::size_t> (*measure)(Bytes, Bytes)) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  const Result<std::size_t> operations = measure(s, args.text(2));
  args.require(operations.status());
  return new_integer(args, *operations);
}

HostObject likeness(const HostTable* host, HostObject argseq,
                    Result<double> (*measure)(Bytes, Bytes)) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  const Result<double> value = measure(s, args.text(2));
  args.require(value.status());
  return host->HostNewFloat(*value);
}

}  // namespace

HostObject vstring_damerau(const HostTable* host, HostObject argseq) {
  return distance(host, argseq, words::damerau_distance);
}

HostObject vstring_osa(const HostTable* host, HostObject argseq) {
  return distance(host, argseq, words::optimal_string_alignment);
}

HostObject vstring_indel(const HostTable* host, HostObject argseq) {
  return distance(host, argseq, words::indel_distance);
}

HostObject vstring_jaro(const HostTable* host, HostObject argseq) {
  return likeness(host, argseq, words::jaro);
}

HostObject vstring_jarowinkler(const HostTable* host, HostObject argseq) {
  return likeness(host, argseq, words::jaro_winkler);
}

HostObject vstring_ratio(const HostTable* host, HostObject argseq) {
  return likeness(host, argseq, words::ratio);
}

HostObject vstring_partialratio(const HostTable* host, HostObject argseq) {
  return likeness(host, argseq, words::partial_ratio);
}

HostObject vstring_tokensort(const HostTable* host, HostObject argseq) {
  return likeness(host, argseq, words::token_sort_ratio);
}

HostObject vstring_tokenset(const HostTable* host, HostObject argseq) {
  return likeness(host, argseq, words::token_set_ratio);
}

HostObject vstring_cosine(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const Bytes s = args.text(1);
  const Bytes t = args.text(2);
  const auto q = static_cast<std::size_t>(args.positive(3));
  const Result<double> cosine = words::qgram_cosine(s, t, q);
  args.require(cosine.status());
  return host->HostNewFloat(*cosine);
}
