// Entry point: expandCharClass.
#include "charclass/expand.h"
#include "host/args.h"
#include "host/result.h"

using namespace vstring;

constexpr Signature kExpandCharClass = {
    1, {{messages::kArgumentString, "invalid character class specification"}}};

HostObject vstring_expandCharClass(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kExpandCharClass);
  Byte members[charclass::kMostMembers];
  const Result<Bytes> expansion = charclass::ExpandClassSpec(args.text(1), members);
  if (!expansion.ok()) args.refuse(1);
  return new_string(args, *expansion);
}
