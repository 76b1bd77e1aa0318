// Entry points: lowercase, uppercase, capitalise, tr.
#include "charclass/case_map.h"
#include "host/args.h"
#include "host/result.h"

using namespace vstring;

namespace {

using Map = void (*)(Bytes text, MutableBytes out);

// A range is looked at with exactly two arguments; with more, the whole text is mapped.
HostObject mapped(const HostTable* host, HostObject argseq, Map map) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  Stretch range = {0, text.size()};
  if (args.count() == 2) range = args.range(2, text.size());
  TextResult result(args, text.size());
  const MutableBytes rest = copy_into(result.bytes(), text.first(range.first));
  map(text.subspan(range.first, range.count), rest.first(range.count));
  copy_into(rest.subspan(range.count), text.subspan(range.first + range.count));
  return result.object();
}

}  // namespace

HostObject vstring_lowercase(const HostTable* host, HostObject argseq) {
  return mapped(host, argseq, charclass::lowercase);
}

HostObject vstring_uppercase(const HostTable* host, HostObject argseq) {
  return mapped(host, argseq, charclass::uppercase);
}

HostObject vstring_capitalise(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  TextResult result(args, text.size());
  charclass::capitalise(text, result.bytes());
  return result.object();
}

constexpr Signature kTr = {3, {{}, {nullptr, "second argument must be as long as the first"}}};

HostObject vstring_tr(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTr);
  const Bytes from = args.text(1);
  const Bytes to = args.text(2);
  const Bytes text = args.text(3);
  if (to.size() < from.size()) args.refuse(2);
  TextResult result(args, text.size());
  charclass::translate(from, to, text, result.bytes());
  return result.object();
}
