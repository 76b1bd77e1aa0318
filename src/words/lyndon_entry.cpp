// Entry points: lynfac, minconj, conjp, isprim, primroot, monfac.
#include "host/args.h"
#include "host/result.h"
#include "words/conjugate.h"
#include "words/lyndon.h"
#include "words/monotone.h"
#include "words/primitivity.h"

using namespace vstring;

HostObject vstring_lynfac(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  words::LyndonFactors factors(word);
  return new_list(args, factors.count(),
                  [&](std::size_t) { return new_string(args, factors.next()); });
}

HostObject vstring_minconj(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  if (word.size() < 2) return args.object(1);
  const std::size_t start = words::least_rotation(word);
  TextResult rotated(args, word.size());
  copy_into(copy_into(rotated.bytes(), word.subspan(start)), word.first(start));
  return rotated.object();
}

HostObject vstring_conjp(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes v = args.text(1);
  const Bytes w = args.text(2);
  return new_boolean(args, words::are_conjugate(v, w));
}

HostObject vstring_isprim(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  return new_boolean(args, !word.empty() && words::primitive_root(word) == word.size());
}

HostObject vstring_primroot(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  if (word.empty()) return args.object(1);
  const std::size_t root = words::primitive_root(word);
  // A word of one letter is copied, a longer one that is its own root is handed back.
  if (root == word.size() && root > 1) return args.object(1);
  return new_string(args, word.first(root));
}

HostObject vstring_monfac(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  std::size_t start = 0;
  return new_list(args, words::count_monotone_factors(word), [&](std::size_t) {
    const std::size_t end = words::monotone_factor_end(word, start);
    const Bytes factor = word.subspan(start, end - start);
    start = end;
    return new_string(args, factor);
  });
}
