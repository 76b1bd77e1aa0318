// Entry points: subst, substx.
#include "host/args.h"
#include "host/result.h"
#include "search/exact/exact.h"
#include "search/exact/substitution.h"

using namespace vstring;

namespace {

struct Query {
  Bytes text;
  Bytes pattern;
  Bytes replacement;
};

Query decoded(const Args& args) {
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
  const MutableBytes rest = copy_into(copy_into(result.bytes(), text.first(at)), replacement);
  copy_into(rest, text.subspan(at + pattern.size()));
  return result.object();
}

HostObject vstring_substx(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const auto [text, pattern, replacement] = decoded(args);
  if (text.size() < pattern.size()) return args.object(1);
  search::Substitution substitution(text, pattern, replacement);
  if (!substitution.is_found()) return copy_of_text(args);
  TextResult result(args, substitution.room());
  return result.object(substitution.write(result.bytes()));
}
