// Entry point: fmttime.
#include <ctime>

#include "host/args.h"
#include "host/result.h"
#include "time/local_time.h"

using namespace vstring;

namespace {

constexpr const char* kBadTimestamp = "timestamp value must be a 32-bit signed integer";
constexpr const char* kBadOffset = "offset value must be a 32-bit signed integer";

std::int64_t option_value(const Args& args, HostObject equation, const char* not_integer) {
  const HostObject value = right_side(equation);
  if (!args.is_integer32(value)) args.raise(not_integer);
  return args.host()->HostToInteger32(value);
}

// The time that the second argument names, in seconds since the epoch.
std::int64_t time_asked_for(const Args& args) {
  const std::int64_t now = std::time(nullptr);
  if (!args.has(2)) return now;
  const HostObject when = args.object(2);
  if (!is_equation(when)) {
    if (!args.is_integer32(when)) args.refuse_kind(2);
    return now + args.host()->HostToInteger32(when);
  }
  const HostObject option = left_side(when);
  if (is_text(option) && equal(text_of(option), "timestamp")) {
    return option_value(args, when, kBadTimestamp);
  }
  if (is_text(option) && equal(text_of(option), "offset")) {
    return now + option_value(args, when, kBadOffset);
  }
  args.refuse(2, option);
}

}  // namespace

constexpr Signature kFmttime = {
    0,
    {{},
     {"second argument must be a 32-bit signed integer time displacement or an equation of the "
      "form `timestamp = t', where t is a 32-bit signed integer",
      "unrecognised option name `%1'"}}};

HostObject vstring_fmttime(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kFmttime);
  if (args.has(1)) args.text(1);
  const char* const format = args.has(1) ? c_text_of(args.object(1)) : "%Y-%m-%d";
  const std::int64_t when = time_asked_for(args);
  char frame[SMALL_BUFFER_BASE_SIZE];
  HeldArray<char> block;
  const Result<const char*> text = time::format_local(when, format, frame, sizeof frame, block);
  args.require(text.status());
  const HostObject result = host->HostNewString(*text);
  block.free();
  return result;
}
