// Commands that give what one function says of two texts, and no more.
#pragma once
#include "host/args.h"
#include "host/result.h"

namespace vstring {

template <auto kMeasure>
HostObject measured(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  return new_value(args, kMeasure(s, args.text(2)));
}

}  // namespace vstring
