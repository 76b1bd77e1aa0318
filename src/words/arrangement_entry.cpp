// Entry points: isanagram, nextperm, rle, morphism.
#include "host/args.h"
#include "host/measure.h"
#include "host/result.h"
#include "words/arrangement.h"
#include "words/morphism.h"
#include "words/run_length.h"

using namespace vstring;

HostObject vstring_isanagram(const HostTable* host, HostObject argseq) {
  return measured<words::are_anagrams>(host, argseq);
}

HostObject vstring_nextperm(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes word = args.text(1);
  TextResult next(args, word.size());
  copy_into(next.bytes(), word);
  const bool is_there = words::next_arrangement(next.bytes());
  const HostObject result = next.object();
  return is_there ? result : host->HostToBoolean(-1);
}

HostObject vstring_rle(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  Bytes rest = args.text(1);
  return new_list(args, words::count_runs(rest), [&](std::size_t) {
    const Byte letter = rest[0];
    const std::size_t length = words::first_run(rest);
    rest = rest.subspan(length);
    return new_list_of(args, {new_letter(args, letter), new_integer(args, length)});
  });
}

namespace {

words::Morphism morphism_of(const Args& args, int position) {
  const Elements rules = args.list(position);
  for (const HostObject rule : rules) {
    if (!is_equation(rule)) args.refuse_kind(position);
  }
  words::Morphism morphism;
  for (const HostObject rule : rules) {
    const HostObject left = left_side(rule);
    if (!is_text(left) || text_of(left).size() != 1) {
      args.raise("left sides of equations must be one-byte strings");
    }
    const HostObject right = right_side(rule);
    if (!is_text(right)) args.raise("right sides of equations must be strings");
    const Byte letter = text_of(left)[0];
    if (morphism.has_image(letter)) {
      args.raise(messages::kRepeatedCharacter, new_letter(args, letter));
    }
    morphism.set_image(letter, text_of(right));
  }
  return morphism;
}

constexpr std::int32_t kHighestPower = 1000;
constexpr Signature kMorphism = {2, {{}, {"second argument must be a list of equations"}}};

}  // namespace

HostObject vstring_morphism(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kMorphism);
  const Bytes word = args.text(1);
  const words::Morphism morphism = morphism_of(args, 2);
  const std::int32_t n = args.has(3) ? args.non_negative(3) : 1;
  if (n > kHighestPower) args.raise("third argument is too large");
  if (n == 0) return args.object(1);
  HeldArray<Byte> image;
  const Status status = morphism.apply(word, static_cast<std::size_t>(n), kLongestMade, image);
  if (status == Status::refused) args.raise(messages::kResultTooLong);
  args.require(status);
  const HostObject result =
      equal(image.view(), word) ? args.object(1) : new_string(args, image.view());
  image.free();
  return result;
}
