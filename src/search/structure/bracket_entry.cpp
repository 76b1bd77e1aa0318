// Entry points: brackets, isbalanced.
#include "host/args.h"
#include "host/result.h"
#include "search/structure/brackets.h"

using namespace vstring;

namespace {

constexpr const char* kUsualPairs = "()[]{}";
constexpr Signature kBrackets = {
    1, {{}, {nullptr, "second argument must consist of pairs of distinct bytes"}}};

search::BracketPairs pairs_of(const Args& args, int position) {
  search::BracketPairs pairs;
  const Bytes bytes = args.has(position) ? args.text(position) : bytes_of(kUsualPairs);
  if (!pairs.set(bytes)) args.refuse(position);
  return pairs;
}

}  // namespace

HostObject vstring_brackets(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kBrackets);
  const Bytes text = args.text(1);
  const search::BracketPairs pairs = pairs_of(args, 2);
  HeldArray<search::Bracket> found;
  args.require(search::find_brackets(text, pairs, found));
  const HostObject list = new_list(args, found.size(), [&](std::size_t i) {
    return new_list_of(
        args, {new_position(args, found[i].opening), new_position(args, found[i].closing)});
  });
  found.free();
  return list;
}

HostObject vstring_isbalanced(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kBrackets);
  const Bytes text = args.text(1);
  const Result<bool> balanced = search::is_balanced(text, pairs_of(args, 2));
  args.require(balanced.status());
  return new_boolean(args, *balanced);
}
