// Entry point: iota.
#include "core/editing.h"
#include "host/args.h"
#include "host/result.h"

using namespace vstring;

namespace {

bool is_code(std::int32_t n) { return n >= 1 && n <= 255; }

// The empty string stands for its terminator, byte 0.
int first_byte(HostObject string) {
  const Bytes text = text_of(string);
  return text.empty() ? 0 : text[0];
}

HostObject consecutive(const Args& args, int first, int last) {
  if (first > last) {
    args.raise("left endpoint of range must be less than or equal to the right endpoint");
  }
  TextResult result(args, static_cast<std::size_t>(last - first + 1));
  core::iota(static_cast<Byte>(first), result.bytes());
  return result.object();
}

HostObject between(const Args& args, HostObject low, HostObject high) {
  const HostTable* const host = args.host();
  if (args.is_integer32(low) && args.is_integer32(high)) {
    const std::int32_t first = host->HostToInteger32(low);
    const std::int32_t last = host->HostToInteger32(high);
    if (!is_code(first)) args.raise("lower endpoint of range must be in the range 1 .. 255");
    if (!is_code(last)) args.raise("upper endpoint of range must be in the range 1 .. 255");
    return consecutive(args, first, last);
  }
  if (host->HostIsString(low) == 0 || host->HostIsString(high) == 0) {
    args.raise("endpoints of range must be small integers");
  }
  return consecutive(args, first_byte(low), first_byte(high));
}

}  // namespace

constexpr Signature kIota = {0, {{"first argument must be an integer or an integer range"}}};

HostObject vstring_iota(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kIota);
  if (args.count() == 2) return between(args, args.object(1), args.object(2));
  if (args.count() != 1) {
    args.raise("expecting one or two arguments, but received %1",
               host->HostNewInteger(args.count()));
  }
  const HostObject argument = args.object(1);
  if (args.is_integer32(argument)) {
    const std::int32_t n = host->HostToInteger32(argument);
    if (!is_code(n)) args.raise("integer argument must be in the range 1 .. 255");
    return consecutive(args, 1, n);
  }
  if (args.is_integer(argument)) args.raise("integer argument is too large");
  if (!is_range(argument)) args.refuse_kind(1);
  return between(args, left_side(argument), right_side(argument));
}
