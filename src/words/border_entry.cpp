// Entry points: period, isperiod, border, borderlen, borderarray, overlap.
#include "host/args.h"
#include "host/result.h"
#include "runtime/small_array.h"
#include "words/border.h"
#include "words/period.h"

using namespace vstring;

// Without memory for a border array the word counts as having a border of length -1: scripts test
// for a period longer than the word, or for a negative border.
HostObject vstring_period(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  const Result<std::size_t> period = words::smallest_period(word);
  return new_integer(args, period.ok() ? *period : word.size() + 1);
}

HostObject vstring_borderlen(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Result<std::size_t> border = words::longest_border(args.text(1));
  return border.ok() ? new_integer(args, *border) : host->HostNewInteger(-1);
}

HostObject vstring_border(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  const Result<std::size_t> border = words::longest_border(word);
  args.require(border.status());
  return new_string(args, word.last(*border));
}

HostObject vstring_isperiod(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes word = args.text(1);
  const auto p = static_cast<std::size_t>(args.positive(2));
  return new_boolean(args, words::has_period(word, p));
}

HostObject vstring_borderarray(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  // No list holds 2^32 elements: its length in words is a 32-bit number.
  if (word.size() >= UINT32_MAX) args.raise(Status::out_of_memory);
  SmallArray<std::uint32_t, words::kShortTable> border;
  if (!border.allocate(word.size() + 1)) args.raise(Status::out_of_memory);
  words::border_array(word, border.view());
  const HostObject list = new_list(
      args, word.size(), [&](std::size_t i) { return new_integer(args, border.view()[i + 1]); });
  border.free();
  return list;
}

HostObject vstring_overlap(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  const Bytes t = args.text(2);
  if (args.object(1) == args.object(2)) return new_integer(args, s.size());
  return new_value(args, words::overlap(s, t));
}
