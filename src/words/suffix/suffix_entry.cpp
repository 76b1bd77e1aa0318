// Entry points: suffixarray, factorcount, repetitions, lcsubstring, bwt, unbwt.
#include "host/args.h"
#include "host/result.h"
#include "words/suffix/burrows_wheeler.h"
#include "words/suffix/factors.h"
#include "words/suffix/repetition.h"
#include "words/suffix/suffix_array.h"

using namespace vstring;

HostObject vstring_suffixarray(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes text = args.text(1);
  HeldArray<std::int32_t> sorted;
  if (!sorted.resize(text.size())) args.raise(Status::out_of_memory);
  args.require(words::suffix_array(text, {sorted.data(), sorted.size()}));
  const HostObject list = new_list(
      args, sorted.size(), [&](std::size_t r) { return host->HostNewInteger(sorted[r] + 1); });
  sorted.free();
  return list;
}

HostObject vstring_factorcount(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes word = args.text(1);
  return new_value(
      args, args.has(2) ? words::count_factors(word, static_cast<std::size_t>(args.non_negative(2)))
                        : words::count_factors(word));
}

HostObject vstring_repetitions(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  HeldArray<words::Repetition> found;
  args.require(words::maximal_repetitions(args.text(1), found));
  const HostObject list = new_list(args, found.size(), [&](std::size_t i) {
    const words::Repetition& run = found[i];
    return new_list_of(args,
                       {new_integer(args, run.start + std::size_t{1}),
                        new_integer(args, run.end - run.start), new_integer(args, run.period)});
  });
  found.free();
  return list;
}

HostObject vstring_lcsubstring(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  const Result<Bytes> factor = words::longest_common_factor(s, args.text(2));
  args.require(factor.status());
  return new_string(args, *factor);
}

HostObject vstring_bwt(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  if (word.empty()) return new_list_of(args, {empty_string(args), new_integer(args, 0)});
  TextResult last(args, word.size());
  const Result<std::size_t> rank = words::burrows_wheeler(word, last.bytes());
  args.require(rank.status());
  return new_list_of(args, {last.object(), new_integer(args, *rank + 1)});
}

constexpr Signature kUnbwt = {2, {{}, {nullptr, "second argument is out of range"}}};

HostObject vstring_unbwt(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kUnbwt);
  const Bytes last = args.text(1);
  const std::int64_t row = args.integer32(2);
  const auto rows = static_cast<std::int64_t>(last.size());
  if (row < (rows == 0 ? 0 : 1) || row > rows) args.refuse(2);
  if (rows == 0) return empty_string(args);
  TextResult word(args, last.size());
  args.require(
      words::inverse_burrows_wheeler(last, static_cast<std::size_t>(row - 1), word.bytes()));
  return word.object();
}
