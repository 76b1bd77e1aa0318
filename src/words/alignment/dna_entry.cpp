// Entry points: revcomp, translate.
#include "host/args.h"
#include "host/result.h"
#include "words/alignment/dna.h"

using namespace vstring;

// In the order of words::Nucleic.
constexpr const char* kKinds[] = {"dna", "rna"};

constexpr Signature kRevcomp = {1, {{}, {nullptr, "unrecognised kind `%1'"}}};

HostObject vstring_revcomp(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kRevcomp);
  const Bytes sequence = args.text(1);
  const words::Nucleic kind = args.choice(2, kKinds, words::Nucleic::dna);
  TextResult complement(args, sequence.size());
  words::reverse_complement(sequence, kind, complement.bytes());
  return complement.object();
}

constexpr Signature kTranslate = {1, {{messages::kArgumentString, "invalid codon `%1'"}}};

HostObject vstring_translate(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTranslate);
  const Bytes sequence = args.text(1);
  TextResult protein(args, sequence.size() / 3);
  const std::size_t wrong = words::translate(sequence, protein.bytes());
  if (wrong != npos) args.refuse(1, new_string(args, sequence.subspan(wrong, 3)));
  return protein.object();
}
