// Entry points: subst, substx.
#include "host/args.h"
#include "host/result.h"
#include "search/exact/exact.h"
#include "search/exact/reported_count.h"
#include "search/exact/substitution.h"

using namespace vstring;

namespace {

struct Substitution {
  Bytes text;
  Bytes pattern;
  Bytes replacement;
};

Substitution decoded(const Args& args) {
  const Bytes text = args.text(1);
  const Bytes pattern = args.text(2);
  return {text, pattern, args.text(3)};
}

HostObject copy_of_text(const Args& args) {
  return args.host()->HostNewString(c_text_of(args.object(1)));
}

}  // namespace

HostObject vstring_subst(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const auto [text, pattern, replacement] = decoded(args);
  if (text.size() < pattern.size()) return args.object(1);
  const std::size_t at = search::find(pattern, text);
  if (at == npos) return copy_of_text(args);
  TextResult result(args, text.size() - pattern.size() + replacement.size());
  search::substitute(text, pattern.size(), replacement, {&at, 1}, result.bytes());
  return result.object();
}

HostObject vstring_substx(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const auto [text, pattern, replacement] = decoded(args);
  if (text.size() < pattern.size()) return args.object(1);
  HeldArray<std::size_t> occurrences;
  args.require(search::find_all(pattern, text, occurrences));
  if (!search::counts_as_found(occurrences.size())) {
    occurrences.free();
    return copy_of_text(args);
  }
  const std::size_t length =
      search::plan_substitution(text.size(), pattern.size(), replacement.size(), occurrences);
  TextResult result(args, length);
  search::substitute(text, pattern.size(), replacement, occurrences.view(), result.bytes());
  occurrences.free();
  return result.object();
}
