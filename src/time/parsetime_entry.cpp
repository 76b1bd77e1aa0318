// Entry point: parsetime.
#include "host/args.h"
#include "host/result.h"
#include "time/parse_time.h"

using namespace vstring;

constexpr Signature kParsetime = {1, {{}, {nullptr, "unrecognised conversion `%1'"}}};

HostObject vstring_parsetime(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kParsetime);
  const Bytes text = args.text(1);
  const Bytes format = args.has(2) ? args.text(2) : bytes_of("%Y-%m-%d");
  const Bytes unknown = time::unknown_conversion(format);
  if (!unknown.empty()) args.refuse(2, new_string(args, unknown));
  const std::optional<std::int64_t> when = time::parse_time(text, format);
  return when ? host->HostNewInteger(*when) : host->HostToBoolean(-1);
}
