// Entry points: words, sentences, ngrams, readability.
#include "host/args.h"
#include "host/result.h"
#include "text/extraction/readability.h"
#include "text/extraction/sentences.h"
#include "text/extraction/words.h"

using namespace vstring;

HostObject vstring_words(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  HeldArray<Bytes> words;
  args.require(text::find_words(args.text(1), words));
  return new_text_list(args, words);
}

HostObject vstring_sentences(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  HeldArray<Bytes> sentences;
  args.require(text::find_sentences(args.text(1), sentences));
  return new_text_list(args, sentences);
}

namespace {

// How many n-grams there are of so many things.
std::size_t gram_count(std::size_t things, std::size_t n) {
  return things < n ? 0 : things - n + 1;
}

HostObject letter_grams(const Args& args, Bytes text, std::size_t n) {
  const std::size_t count = gram_count(text.size(), n);
  args.limit_length(std::uint64_t{count} * n);
  return new_list(args, count, [&](std::size_t i) { return new_string(args, text.subspan(i, n)); });
}

// The length of every n consecutive texts joined with blanks, all together; or one beyond the
// limit.
std::uint64_t length_of_grams(Elements texts, std::size_t n) {
  std::uint64_t sum = 0;
  std::uint64_t gram = n - 1;
  for (std::size_t i = 0; i < texts.size() && sum <= kLongestMade; ++i) {
    gram += text_of(texts[i]).size();
    if (i + 1 < n) continue;
    sum += gram;
    gram -= text_of(texts[i + 1 - n]).size();
  }
  return sum;
}

HostObject text_grams(const Args& args, Elements texts, std::size_t n) {
  args.limit_length(length_of_grams(texts, n));
  return new_list(args, gram_count(texts.size(), n), [&](std::size_t i) {
    std::size_t length = n - 1;
    for (std::size_t k = i; k < i + n; ++k) length += text_of(texts[k]).size();
    TextResult gram(args, length);
    MutableBytes rest = copy_into(gram.bytes(), text_of(texts[i]));
    for (std::size_t k = i + 1; k < i + n; ++k) {
      rest = copy_into(copy_into(rest, bytes_of(" ")), text_of(texts[k]));
    }
    return gram.object();
  });
}

constexpr Signature kNgrams = {2, {{"first argument must be a string or a list of strings"}}};

}  // namespace

HostObject vstring_ngrams(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kNgrams);
  const HostObject whole = args.object(1);
  const bool is_text_list = is_list(whole) && all_texts(Elements::of_list(whole));
  if (!is_text(whole) && !is_text_list) args.refuse_kind(1);
  const auto n = static_cast<std::size_t>(args.positive(2));
  return is_text_list ? text_grams(args, Elements::of_list(whole), n)
                      : letter_grams(args, text_of(whole), n);
}

// In the order of text::Measure.
constexpr const char* kMeasures[] = {"ease", "grade"};
constexpr Signature kReadability = {1, {{}, {nullptr, "unrecognised measure `%1'"}}};

HostObject vstring_readability(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kReadability);
  const Bytes text = args.text(1);
  const text::Measure measure = args.choice(2, kMeasures, text::Measure::ease);
  HeldArray<Bytes> words;
  HeldArray<Bytes> sentences;
  args.require(text::find_words(text, words));
  args.require(text::find_sentences(text, sentences));
  const bool has_words = !words.empty();
  const double value = has_words ? text::readability(words.view(), sentences.size(), measure) : 0.0;
  words.free();
  sentences.free();
  return has_words ? host->HostNewFloat(value) : host->HostToBoolean(-1);
}
