// Entry points: fibword, thuemorse, christoffel, debruijn, lyndonwords.
#include "core/orders.h"
#include "host/args.h"
#include "host/result.h"
#include "words/special/necklace.h"
#include "words/special/special_words.h"

using namespace vstring;

namespace {

Bytes alphabet_or_ab(const Args& args, int position) {
  return args.has(position) ? args.text(position) : bytes_of("ab");
}

constexpr Signature kFibword = {1, {{}, {nullptr, "second argument must have 2 bytes"}}};
constexpr Signature kThuemorse = {1, {{}, {nullptr, "second argument must have at least 2 bytes"}}};
constexpr Signature kChristoffel = {2, {{}, {}, {nullptr, "third argument must have 2 bytes"}}};
constexpr Signature kNecklace = {2, {{nullptr, "first argument must not be empty"}}};

// Letters in an order of their own.
Bytes ordered_alphabet(const Args& args, int position) {
  const Bytes alphabet = args.text(position);
  if (alphabet.empty()) args.refuse(position);
  const Byte repeated = core::first_repeated(alphabet);
  if (repeated != 0) args.raise(messages::kRepeatedCharacter, new_letter(args, repeated));
  return alphabet;
}

// A list of more words is too long.
constexpr std::uint64_t kMostWords = 1 << 24;

}  // namespace

HostObject vstring_fibword(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kFibword);
  const auto n = static_cast<std::size_t>(args.non_negative(1));
  const Bytes alphabet = alphabet_or_ab(args, 2);
  if (alphabet.size() != 2) args.refuse(2);
  args.limit_length(n);
  TextResult word(args, n);
  words::fibonacci_word(alphabet, word.bytes());
  return word.object();
}

HostObject vstring_thuemorse(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThuemorse);
  const auto n = static_cast<std::size_t>(args.non_negative(1));
  const Bytes alphabet = alphabet_or_ab(args, 2);
  if (alphabet.size() < 2) args.refuse(2);
  args.limit_length(n);
  TextResult word(args, n);
  words::thue_morse_word(alphabet, word.bytes());
  return word.object();
}

HostObject vstring_christoffel(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kChristoffel);
  const auto p = static_cast<std::uint64_t>(args.non_negative(1));
  const auto q = static_cast<std::uint64_t>(args.non_negative(2));
  const Bytes alphabet = alphabet_or_ab(args, 3);
  if (alphabet.size() != 2) args.refuse(3);
  args.limit_length(p + q);
  TextResult word(args, p + q);
  words::christoffel_word(p, alphabet, word.bytes());
  return word.object();
}

HostObject vstring_debruijn(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kNecklace);
  const Bytes alphabet = ordered_alphabet(args, 1);
  const auto n = static_cast<std::size_t>(args.positive(2));
  const auto length = words::power_within(alphabet.size(), n, kLongestMade);
  args.limit_length(length.value_or(UINT64_MAX));
  TextResult word(args, *length);
  words::de_bruijn_word(alphabet, n, word.bytes());
  return word.object();
}

HostObject vstring_lyndonwords(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kNecklace);
  const Bytes alphabet = ordered_alphabet(args, 1);
  const auto n = static_cast<std::size_t>(args.positive(2));
  args.limit_length(words::power_within(alphabet.size(), n, kLongestMade).value_or(UINT64_MAX));
  const std::uint64_t count = words::count_lyndon_words(alphabet.size(), n);
  if (count > kMostWords) args.raise(messages::kResultTooLong);
  words::LyndonWords lyndon(alphabet, n);
  return new_list(args, count,
                  [&](std::size_t) { return new_string(args, lyndon.next_longest()); });
}
