// Entry points: tally, entropy, wc.
#include "host/args.h"
#include "host/result.h"
#include "host/texts.h"
#include "words/statistics.h"

using namespace vstring;

constexpr Signature kTally = {1, {{"first argument must be a string or a list of strings"}}};

HostObject vstring_tally(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTally);
  const HostObject counted = args.object(1);
  const bool is_text_list = is_list(counted) && all_texts(Elements::of_list(counted));
  if (!is_text(counted) && !is_text_list) args.refuse_kind(1);
  const bool is_cut = args.has(2);
  const auto n = static_cast<std::size_t>(is_cut ? args.non_negative(2) : 0);

  HeldArray<words::Tally> tallies;
  if (is_text_list) {
    HeldArray<Bytes> texts;
    args.require(texts_of(Elements::of_list(counted), texts));
    args.require(words::tally_texts(texts.view(), tallies));
    texts.free();
  } else {
    args.require(words::tally_letters(text_of(counted), tallies));
  }
  if (is_cut) args.require(words::keep_most_frequent(n, tallies));
  const HostObject list = new_list(args, tallies.size(), [&](std::size_t i) {
    return new_equation(args, new_string(args, tallies[i].text),
                        new_integer(args, tallies[i].count));
  });
  tallies.free();
  return list;
}

HostObject vstring_entropy(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  return host->HostNewFloat(words::entropy(args.text(1)));
}

HostObject vstring_wc(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes text = args.text(1);
  const words::TextCounts counts = words::count_text(text);
  return new_list_of(args, {new_integer(args, counts.newlines), new_integer(args, counts.tokens),
                            new_integer(args, text.size())});
}
