// Entry points: hsearch, hsearchx; psearch, psearchx, which are other names for them.
#include "host/args.h"
#include "host/result.h"
#include "search/exact/exact.h"
#include "search/exact/mismatch.h"

using namespace vstring;

HostObject vstring_hsearch(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const Bytes pattern = args.text(1);
  const Bytes text = args.text(2);
  const auto k = static_cast<std::size_t>(args.non_negative(3));
  const std::size_t offset = search::find_mismatched(pattern, text, k);
  return new_position(args, offset);
}

HostObject vstring_hsearchx(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const Bytes pattern = args.text(1);
  const Bytes text = args.text(2);
  const auto k = static_cast<std::size_t>(args.non_negative(3));
  HeldArray<search::Alignment> found;
  args.require(search::find_all_mismatched(pattern, text, k, found));
  return new_findings(args, found, [&](const search::Alignment& alignment) {
    return new_pair(host, static_cast<std::int64_t>(alignment.offset) + 1,
                    static_cast<std::int64_t>(alignment.mismatches));
  });
}

HostObject vstring_psearch(const HostTable* host, HostObject argseq) {
  return vstring_hsearch(host, argseq);
}

HostObject vstring_psearchx(const HostTable* host, HostObject argseq) {
  return vstring_hsearchx(host, argseq);
}
