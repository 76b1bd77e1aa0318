// Entry points: porter, lancaster, pstem, prestem, stem.
#include <strings.h>
#include <cstdio>

#include "host/args.h"
#include "host/release.h"
#include "host/result.h"
#include "text/language/lancaster.h"
#include "text/language/plural.h"
#include "text/language/porter.h"
#include "text/language/prefix.h"

using namespace vstring;

namespace {

constexpr std::size_t kLongestStemmed = 255;

Bytes word_to_stem(const Args& args) {
  const Bytes word = args.text(1);
  if (word.size() > kLongestStemmed) args.refuse(1);
  return word;
}

// Whether stems by the Lancaster rules are traced, from call to call.
bool is_traced = false;

void write(Bytes bytes) { std::fwrite(bytes.data(), 1, bytes.size(), stderr); }
void write(const char* text) { write(bytes_of(text)); }

// A line for each word on the standard error stream: `meanings  ["s" -> ""]["ing" -> ""] mean`.
constexpr text::LancasterTrace kTrace = {
    [](Bytes word) {
      write(word);
      write("  ");
    },
    [](Bytes ending, Bytes replacement) {
      write("[\"");
      write(ending);
      write("\" -> \"");
      write(replacement);
      write("\"]");
    },
    [](Bytes stem) {
      write(" ");
      write(stem);
      write("\n");
    },
};

}  // namespace

void vstring::forget_lancaster_trace() { is_traced = false; }

constexpr Signature kPorter = {1, {{nullptr, messages::kWordTooLong}}};

HostObject vstring_porter(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kPorter);
  const Bytes word = args.text(1);
  if (word.size() > text::kLongestPorterWord) args.refuse(1);
  TextResult stem(args, word.size());
  return stem.object(text::porter(word, stem.bytes()));
}

constexpr Signature kStemmer = {1, {{messages::kArgumentString, messages::kWordTooLong}}};

HostObject vstring_lancaster(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kStemmer);
  const Bytes word = word_to_stem(args);
  TextResult stem(args, word.size());
  const Result<std::size_t> length =
      text::lancaster(word, stem.bytes(), is_traced ? &kTrace : nullptr);
  if (!length.ok()) args.raise(messages::kWordNotAlphabetic);
  return stem.object(*length);
}

HostObject vstring_pstem(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kStemmer);
  const Bytes word = word_to_stem(args);
  TextResult stem(args, word.size());
  return stem.object(text::singular(word, stem.bytes()));
}

HostObject vstring_prestem(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kStemmer);
  return new_string(args, text::without_prefixes(word_to_stem(args)));
}

namespace {

using Command = HostObject(const HostTable* host, HostObject argseq);

struct NamedStemmer {
  const char* name;
  Command* command;
};

constexpr NamedStemmer kStemmers[] = {
    {"lancaster", vstring_lancaster}, {"paice", vstring_lancaster}, {"plural", vstring_pstem},
    {"porter", vstring_porter},       {"prefix", vstring_prestem},
};

// The stemmer of that name in either case, or null. Whatever begins with an s is the plural one.
Command* stemmer_named(const char* name) {
  if (*name == 's' || *name == 'S') return vstring_pstem;
  for (const NamedStemmer& stemmer : kStemmers) {
    if (strcasecmp(name, stemmer.name) == 0) return stemmer.command;
  }
  return nullptr;
}

// The trace is switched before the stemmer is looked for, and stays as it is when that fails.
void switch_trace(HostObject argument) {
  if (!is_text(argument)) return;
  if (equal(text_of(argument), "trace_rules")) is_traced = true;
  if (equal(text_of(argument), "no_trace_rules")) is_traced = false;
}

}  // namespace

constexpr Signature kStem = {1, {{}, {"unrecognised option `%1'", "unrecognised stemmer `%1'"}}};

HostObject vstring_stem(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kStem);
  args.text(1);
  if (args.has(3)) switch_trace(args.object(3));
  if (!args.has(2)) return vstring_porter(host, argseq);
  const HostObject option = args.object(2);
  const char* const name = GetStringOption(host, option, "stemmer");
  if (name == nullptr) args.refuse_kind(2, option);
  Command* const stemmer = stemmer_named(name);
  if (stemmer == nullptr) args.refuse(2, is_equation(option) ? right_side(option) : option);
  return stemmer(host, argseq);
}
