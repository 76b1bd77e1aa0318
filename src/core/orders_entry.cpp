// Entry points: lex, revlex, shortlex, shortrevlex, wslo, wreathorder, lrpo, rrpo, compare,
// compareci, sort, issorted.
#include "bytes/byte_set.h"
#include "bytes/is_sorted.h"
#include "core/orders.h"
#include "host/args.h"
#include "host/measure.h"
#include "host/release.h"
#include "host/result.h"

using namespace vstring;

namespace {

// The orders that take a support string as an optional third argument.
using SupportedOrder = Result<int> (*)(Bytes s, Bytes t, const core::Support& support);

HostObject supported(const HostTable* host, HostObject argseq, SupportedOrder order) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  const Bytes t = args.text(2);
  core::Support support;
  if (args.has(3)) {
    support = args.text(3);
    const Byte repeated = core::first_repeated(*support);
    if (repeated != 0) {
      args.raise("repeated character `%1' detected in support", new_letter(args, repeated));
    }
  }
  const Result<int> result = order(s, t, support);
  if (!result.ok()) args.raise("invalid support string");
  return new_value(args, *result);
}

// The weights read last, and the list object that they were read from: sorting a list of words
// compares under the same weights over and over. The host keeps the list alive for us, so another
// list cannot come to lie at its address.
struct RememberedWeights {
  HostObject list;
  core::Weights weights;
} remembered = {};

core::Weights read_weights(const Args& args, Elements equations) {
  core::Weights weights = {};
  ByteSet given;
  for (std::size_t i = 0; i < equations.size(); ++i) {
    const HostObject equation = equations[i];
    if (!is_equation(equation)) args.raise("expecting a list of equations");
    const HostObject left = left_side(equation);
    if (!is_text(left)) args.raise("left side of equations must be strings");
    const Bytes letter = text_of(left);
    if (letter.empty()) {
      args.raise("left hand sides of equations must be non-empty strings (characters)");
    }
    const HostObject right = right_side(equation);
    if (!args.is_integer32(right)) {
      args.raise("right sides of equations must be (small) integers");
    }
    const std::int32_t weight = args.host()->HostToInteger32(right);
    if (weight < 0) {
      args.raise(
          "right hand sides of equations must be non-negative, but got %1 for the %-2 equation",
          right, new_integer(args, i + 1));
    }
    if (given.has(letter[0])) {
      args.raise(messages::kRepeatedCharacter, new_letter(args, letter[0]));
    }
    given.add(letter[0]);
    weights[letter[0]] = weight;
  }
  return weights;
}

// The weights of the list at `position`: those remembered, or `read`, which are remembered from now
// on. A list that is refused replaces nothing.
const core::Weights& weights_argument(const Args& args, int position, core::Weights& read) {
  const Elements equations = args.list(position);
  const HostObject list = args.object(position);
  if (list == remembered.list) return remembered.weights;
  read = read_weights(args, equations);
  args.host()->HostGcProtect(list);
  const HostObject replaced = remembered.list;
  remembered = {list, read};
  if (replaced != 0) args.host()->HostGcAllow(replaced);
  return read;
}

constexpr Signature kWeighted = {3, {{}, {}, {"expecting a list"}}};

using WeightedOrder = int (*)(Bytes s, Bytes t, const core::Weights& weights);

HostObject weighted(const HostTable* host, HostObject argseq, WeightedOrder order) {
  const Args args(host, argseq, kWeighted);
  const Bytes s = args.text(1);
  const Bytes t = args.text(2);
  core::Weights read;
  return new_value(args, order(s, t, weights_argument(args, 3, read)));
}

}  // namespace

void vstring::forget_weights(const HostTable* host) {
  const HostObject list = remembered.list;
  remembered = {};
  if (list != 0) host->HostGcAllow(list);
}

HostObject vstring_lex(const HostTable* host, HostObject argseq) {
  return supported(host, argseq, core::lex);
}

HostObject vstring_revlex(const HostTable* host, HostObject argseq) {
  return supported(host, argseq, core::revlex);
}

HostObject vstring_shortlex(const HostTable* host, HostObject argseq) {
  return supported(host, argseq, core::shortlex);
}

HostObject vstring_shortrevlex(const HostTable* host, HostObject argseq) {
  return supported(host, argseq, core::shortrevlex);
}

HostObject vstring_wslo(const HostTable* host, HostObject argseq) {
  return weighted(host, argseq, core::weight_order);
}

HostObject vstring_wreathorder(const HostTable* host, HostObject argseq) {
  return weighted(host, argseq, core::wreath_order);
}

HostObject vstring_lrpo(const HostTable* host, HostObject argseq) {
  return measured<core::recursive_path_from_right>(host, argseq);
}

HostObject vstring_rrpo(const HostTable* host, HostObject argseq) {
  return measured<core::recursive_path_from_left>(host, argseq);
}

HostObject vstring_compare(const HostTable* host, HostObject argseq) {
  return measured<core::precedes>(host, argseq);
}

HostObject vstring_compareci(const HostTable* host, HostObject argseq) {
  return measured<core::precedes_ignoring_case>(host, argseq);
}

HostObject vstring_sort(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes text = args.text(1);
  if (text.size() < 2) return args.object(1);
  TextResult result(args, text.size());
  core::sort_bytes(text, result.bytes());
  return result.object();
}

HostObject vstring_issorted(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  return new_boolean(args, is_sorted(args.text(1)));
}
