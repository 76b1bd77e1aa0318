// Entry points: fibword, thuemorse, christoffel, debruijn, lyndonwords.
#include "core/orders.h"
#include "host/args.h"
#include "host/result.h"
#include "words/special/necklace.h"
#include "words/special/special_words.h"

using namespace vstring;

namespace {

constexpr Signature kFibword = {1, {{}, {nullptr, "second argument must have 2 bytes"}}};
constexpr Signature kThuemorse = {1, {{}, {nullptr, "second argument must have at least 2 bytes"}}};
constexpr Signature kChristoffel = {2, {{}, {}, {nullptr, "third argument must have 2 bytes"}}};
constexpr Signature kNecklace = {2, {{nullptr, "first argument must not be empty"}}};

// At least two letters; `most` at the most.
Bytes alphabet_or_ab(const Args& args, int position, std::size_t most) {
  const Bytes alphabet = args.has(position) ? args.text(position) : bytes_of("ab");
  if (alphabet.size() < 2 || alphabet.size() > most) args.refuse(position);
  return alphabet;
}

// The first letters of an infinite word.
HostObject beginning(const Args& args, std::size_t most_letters,
                     void (*write)(Bytes alphabet, MutableBytes word)) {
  const auto n = static_cast<std::size_t>(args.non_negative(1));
  const Bytes alphabet = alphabet_or_ab(args, 2, most_letters);
  return new_long_text(args, n, [&](MutableBytes word) { write(alphabet, word); });
}

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
  return beginning(args, 2, words::fibonacci_word);
}

HostObject vstring_thuemorse(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThuemorse);
  return beginning(args, npos, words::thue_morse_word);
}

HostObject vstring_christoffel(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kChristoffel);
  const auto p = static_cast<std::uint64_t>(args.non_negative(1));
  const auto q = static_cast<std::uint64_t>(args.non_negative(2));
  const Bytes alphabet = alphabet_or_ab(args, 3, 2);
  return new_long_text(args, p + q,
                       [&](MutableBytes word) { words::christoffel_word(p, alphabet, word); });
}

HostObject vstring_debruijn(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kNecklace);
  const Bytes alphabet = ordered_alphabet(args, 1);
  const auto n = static_cast<std::size_t>(args.positive(2));
  const auto length = words::power_within(alphabet.size(), n, kLongestMade);
  return new_long_text(args, length.value_or(UINT64_MAX),
                       [&](MutableBytes word) { words::de_bruijn_word(alphabet, n, word); });
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
