// Entry points: asearch, asearchx, asearchb, asearchxb.
#include "host/args.h"
#include "host/result.h"
#include "search/approximate/approximate.h"

using namespace vstring;

namespace {

constexpr Signature kAsearchb = {
    4,
    {{},
     {},
     {},
     {"fourth argument must be 1, 2 or 3", "bad algorithm selector (must be 1,2 or 3)"}}};

struct Query {
  Bytes pattern;
  Bytes text;
  std::int32_t k;
  search::EditModel model;
};

// Without a selector, patterns of up to 64 bytes are searched by the bit-parallel model.
Query decoded(const Args& args) {
  const Bytes pattern = args.text(1);
  const Bytes text = args.text(2);
  const std::int32_t k = args.integer32(3);
  return {pattern, text, k,
          pattern.size() <= 64 ? search::EditModel::bit_parallel : search::EditModel::table};
}

// The selector is 1 for the bit-parallel model; 2 and 3 both stand for the table.
Query decoded_with_selector(const Args& args) {
  Query query = decoded(args);
  const std::int32_t selector = args.integer32(4);
  if (selector < 1 || selector > 3) args.refuse(4);
  query.model = selector == 1 ? search::EditModel::bit_parallel : search::EditModel::table;
  return query;
}

HostObject first_position(const Args& args, const Query& q) {
  return new_value(args, search::first_end(q.pattern, q.text, q.k, q.model));
}

HostObject all_positions(const Args& args, const Query& q) {
  HeldArray<std::size_t> ends;
  args.require(search::all_ends(q.pattern, q.text, q.k, q.model, ends));
  return new_findings(args, ends, [&](std::size_t end) { return new_integer(args, end); });
}

}  // namespace

HostObject vstring_asearch(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  return first_position(args, decoded(args));
}

HostObject vstring_asearchx(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  return all_positions(args, decoded(args));
}

HostObject vstring_asearchb(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kAsearchb);
  return first_position(args, decoded_with_selector(args));
}

HostObject vstring_asearchxb(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kAsearchb);
  return all_positions(args, decoded_with_selector(args));
}
