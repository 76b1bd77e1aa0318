// Entry points: damerau, osa, indel, jaro, jarowinkler, ratio, partialratio, tokensort, tokenset,
// cosine.
#include "host/args.h"
#include "host/measure.h"
#include "host/result.h"
#include "words/likeness/damerau.h"
#include "words/likeness/indel.h"
#include "words/likeness/jaro.h"
#include "words/likeness/osa.h"
#include "words/likeness/qgrams.h"
#include "words/likeness/ratio.h"
#include "words/likeness/tokens.h"

using namespace vstring;

HostObject vstring_damerau(const HostTable* host, HostObject argseq) {
  return measured<words::damerau_distance>(host, argseq);
}

HostObject vstring_osa(const HostTable* host, HostObject argseq) {
  return measured<words::optimal_string_alignment>(host, argseq);
}

HostObject vstring_indel(const HostTable* host, HostObject argseq) {
  return measured<words::indel_distance>(host, argseq);
}

HostObject vstring_jaro(const HostTable* host, HostObject argseq) {
  return measured<words::jaro>(host, argseq);
}

HostObject vstring_jarowinkler(const HostTable* host, HostObject argseq) {
  return measured<words::jaro_winkler>(host, argseq);
}

HostObject vstring_ratio(const HostTable* host, HostObject argseq) {
  return measured<words::ratio>(host, argseq);
}

HostObject vstring_partialratio(const HostTable* host, HostObject argseq) {
  return measured<words::partial_ratio>(host, argseq);
}

HostObject vstring_tokensort(const HostTable* host, HostObject argseq) {
  return measured<words::token_sort_ratio>(host, argseq);
}

HostObject vstring_tokenset(const HostTable* host, HostObject argseq) {
  return measured<words::token_set_ratio>(host, argseq);
}

HostObject vstring_cosine(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const Bytes s = args.text(1);
  const Bytes t = args.text(2);
  const auto q = static_cast<std::size_t>(args.positive(3));
  return new_value(args, words::qgram_cosine(s, t, q));
}
