// Entry points: count, commonprefix, commonsuffix.
#include "host/args.h"
#include "host/result.h"
#include "search/structure/affixes.h"
#include "search/structure/occurrences.h"

using namespace vstring;

constexpr const char* kCountOptions[] = {"overlapping"};
constexpr Signature kCount = {2, {{}, {}, {nullptr, "unrecognised option `%1'"}}};

HostObject vstring_count(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kCount);
  const Bytes pattern = args.text(1);
  const Bytes text = args.text(2);
  auto overlaps = search::Overlaps::passed_over;
  if (args.has(3)) {
    args.choice(3, kCountOptions);
    overlaps = search::Overlaps::counted;
  }
  return new_integer(args, search::count_occurrences(pattern, text, overlaps));
}

namespace {

// What is left of the first text of a list when `common` has cut it by each of the others.
HostObject common_part(const Args& args, Bytes (*common)(Bytes, Bytes)) {
  const Elements texts = args.strings(1);
  if (texts.empty()) return empty_string(args);
  Bytes part = text_of(texts[0]);
  for (const HostObject text : texts) part = common(part, text_of(text));
  return new_string(args, part);
}

}  // namespace

HostObject vstring_commonprefix(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  return common_part(args, search::shared_prefix);
}

HostObject vstring_commonsuffix(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  return common_part(args, search::shared_suffix);
}
