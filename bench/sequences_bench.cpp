// Suffix arrays, transforms, common factors, alignments, likeness and tallies, beside
// libdivsufsort, a suffix automaton, edlib, and Python's jellyfish and Counter.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "texts.h"
#include "words/alignment/alignment.h"
#include "words/alignment/edit_path.h"
#include "words/likeness/closest.h"
#include "words/likeness/damerau.h"
#include "words/likeness/jaro.h"
#include "words/likeness/ratio.h"
#include "words/statistics.h"
#include "words/suffix/burrows_wheeler.h"
#include "words/suffix/factors.h"
#include "words/suffix/repetition.h"
#include "words/suffix/suffix_array.h"
#ifdef VSTRING_PEER_DIVSUFSORT
#include <divsufsort.h>
#endif
#ifdef VSTRING_PEER_EDLIB
#include <edlib.h>
#endif

namespace {

using vstring::Buffer;
using vstring::Byte;
using vstring::Bytes;
using vstring_bench::bytes;

std::string random_text(std::size_t n, const std::string& letters, unsigned seed) {
  std::mt19937 engine(seed);
  std::string text(n, '\0');
  for (char& c : text) c = letters[engine() % letters.size()];
  return text;
}

std::string all_bytes() {
  std::string letters;
  for (int c = 1; c < 256; ++c) letters += static_cast<char>(c);
  return letters;
}

// ---- Texts of one kind: suffixes ----

std::int64_t suffix_array(const std::string& text) {
  std::vector<std::int32_t> sorted(text.size());
  (void)vstring::words::suffix_array(bytes(text), sorted);
  return sorted[0];
}

std::int64_t transform(const std::string& text) {
  std::vector<Byte> last(text.size());
  return static_cast<std::int64_t>(*vstring::words::burrows_wheeler(bytes(text), last));
}

std::int64_t repetitions(const std::string& text) {
  Buffer<vstring::words::Repetition> found;
  (void)vstring::words::maximal_repetitions(bytes(text), found);
  return static_cast<std::int64_t>(found.size());
}

#ifdef VSTRING_PEER_DIVSUFSORT
std::int64_t divsufsort_array(const std::string& text) {
  std::vector<std::int32_t> sorted(text.size());
  divsufsort(reinterpret_cast<const Byte*>(text.data()), sorted.data(),
             static_cast<std::int32_t>(text.size()));
  return sorted[0];
}

std::int64_t divsufsort_transform(const std::string& text) {
  std::vector<Byte> last(text.size());
  return divbwt(reinterpret_cast<const Byte*>(text.data()), last.data(), nullptr,
                static_cast<std::int32_t>(text.size()));
}
#endif

// The two halves of the text.
std::int64_t common_factor(const std::string& text) {
  const Bytes all = bytes(text);
  const std::size_t half = text.size() / 2;
  return static_cast<std::int64_t>(
      vstring::words::longest_common_factor(all.first(half), all.subspan(half))->size());
}

// A. Blumer et al., "The smallest automaton recognizing the subwords of a text", 1985, of the first
// half; the second one is run through it.
std::int64_t automaton_factor(const std::string& text) {
  struct State {
    std::array<std::int32_t, 256> next;
    std::int32_t link = -1;
    std::int32_t length = 0;
    State() { next.fill(-1); }
  };
  const std::size_t half = text.size() / 2;
  std::vector<State> states(1);
  states.reserve(2 * half);
  const auto at = [&](std::int32_t i) -> State& { return states[static_cast<std::size_t>(i)]; };
  std::int32_t last = 0;
  for (std::size_t i = 0; i < half; ++i) {
    const auto c = static_cast<Byte>(text[i]);
    const auto added = static_cast<std::int32_t>(states.size());
    states.emplace_back();
    at(added).length = at(last).length + 1;
    std::int32_t p = last;
    for (; p >= 0 && at(p).next[c] < 0; p = at(p).link) at(p).next[c] = added;
    if (p < 0) {
      at(added).link = 0;
    } else if (const std::int32_t q = at(p).next[c]; at(q).length == at(p).length + 1) {
      at(added).link = q;
    } else {
      const auto clone = static_cast<std::int32_t>(states.size());
      states.push_back(at(q));
      at(clone).length = at(p).length + 1;
      for (; p >= 0 && at(p).next[c] == q; p = at(p).link) at(p).next[c] = clone;
      at(q).link = at(added).link = clone;
    }
    last = added;
  }
  std::int32_t state = 0;
  std::int64_t length = 0;
  std::int64_t longest = 0;
  for (std::size_t i = half; i < text.size(); ++i) {
    const auto c = static_cast<Byte>(text[i]);
    while (state > 0 && at(state).next[c] < 0) length = at(state = at(state).link).length;
    if (at(state).next[c] < 0) continue;
    state = at(state).next[c];
    longest = std::max(longest, ++length);
  }
  return longest;
}

void measure(benchmark::State& state, std::int64_t (*answer)(const std::string&),
             const std::string& text) {
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(answer(text));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

// ---- Pairs: alignments ----

std::int64_t edits(const std::string& s, const std::string& t) {
  Buffer<Byte> columns;
  (void)vstring::words::edit_path(bytes(s), bytes(t), columns);
  return static_cast<std::int64_t>(columns.size());
}

std::int64_t align(const std::string& s, const std::string& t) {
  Buffer<Byte> columns;
  return *vstring::words::align(bytes(s), bytes(t), {}, columns);
}

std::int64_t partial_ratio(const std::string& s, const std::string& t) {
  return static_cast<std::int64_t>(*vstring::words::partial_ratio(bytes(s), bytes(t)));
}

#ifdef VSTRING_PEER_EDLIB
std::int64_t edlib_path(const std::string& s, const std::string& t) {
  const EdlibAlignResult result =
      edlibAlign(s.data(), static_cast<int>(s.size()), t.data(), static_cast<int>(t.size()),
                 edlibNewAlignConfig(-1, EDLIB_MODE_NW, EDLIB_TASK_PATH, nullptr, 0));
  const std::int64_t columns = result.alignmentLength;
  edlibFreeAlignResult(result);
  return columns;
}
#endif

void measure_pair(benchmark::State& state,
                  std::int64_t (*answer)(const std::string&, const std::string&), std::size_t n,
                  bool alike) {
  const std::string s = random_text(n, "ACGT", 1);
  std::string t = alike ? s : random_text(n, "ACGT", 2);
  for (std::size_t i = 0; alike && i < n; i += 20) t[i] = 'A';
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(answer(s, t));
  state.counters["cells"] = benchmark::Counter(static_cast<double>(n) * static_cast<double>(n),
                                               benchmark::Counter::kIsIterationInvariantRate);
}

// ---- Words: likeness and tallies, beside Python ----

std::vector<std::string> dictionary() {
  std::vector<std::string> words;
  for (std::size_t k = 0; k < vstring::search::kBuiltinWordCount; ++k) {
    words.push_back(vstring_bench::word(k));
  }
  return words;
}

std::vector<Bytes> spans(const std::vector<std::string>& words) {
  std::vector<Bytes> spans;
  for (const std::string& word : words) spans.push_back(bytes(word));
  return spans;
}

// 235,000 words where Debian's miscfiles are installed.
std::vector<std::string> large_dictionary() {
  std::ifstream in("/usr/share/dict/web2");
  const std::vector<std::string> words(std::istream_iterator<std::string>(in), {});
  return words.empty() ? dictionary() : words;
}

void closest(benchmark::State& state) {
  const std::vector<std::string> words = large_dictionary();
  const std::vector<Bytes> texts = spans(words);
  for ([[maybe_unused]] auto _ : state) {
    Buffer<vstring::words::Neighbour> nearest;
    (void)vstring::words::nearest_texts(bytes("appelation"), texts, 5,
                                        vstring::words::Metric::levenshtein, nearest);
    benchmark::DoNotOptimize(nearest.data());
  }
}

// The dictionary's neighbours, one after the other.
template <typename Measure>
void compare_words(benchmark::State& state, Measure measure) {
  const std::vector<std::string> words = dictionary();
  for ([[maybe_unused]] auto _ : state) {
    for (std::size_t k = 0; k + 1 < words.size(); ++k) {
      benchmark::DoNotOptimize(*measure(bytes(words[k]), bytes(words[k + 1])));
    }
  }
}

void tally(benchmark::State& state) {
  const std::string text = vstring_bench::prose(4000000);
  std::vector<Bytes> tokens;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t end = std::min(text.find_first_of(" \n", i), text.size());
    if (end > i) tokens.push_back(bytes(text).subspan(i, end - i));
    i = end + 1;
  }
  for ([[maybe_unused]] auto _ : state) {
    Buffer<vstring::words::Tally> tallies;
    (void)vstring::words::tally_texts(tokens, tallies);
    benchmark::DoNotOptimize(tallies.data());
  }
}

// Seconds of the processor that a statement of Python takes, `words` being the dictionary, `many`
// the large one, and `tokens` the words of the same prose.
void python(benchmark::State& state, const std::string& import, const std::string& statement) {
  std::string script = "import time, timeit\n" + import + "\n";
  const auto give = [&](const char* name, const std::vector<std::string>& texts) {
    const std::string path = std::string("/tmp/vstring_bench_") + name;
    std::ofstream out(path);
    for (const std::string& text : texts) out << text << '\n';
    script += std::string(name) + " = open(\"" + path + "\", encoding=\"latin1\").read().split()\n";
  };
  give("words", dictionary());
  give("many", large_dictionary());
  give("tokens", {vstring_bench::prose(4000000)});
  const std::string command = "/usr/bin/python3 -W ignore -c '" + script +
                              "print(timeit.timeit(lambda: " + statement +
                              ", timer=time.process_time, number=1))' 2>/dev/null";
  for ([[maybe_unused]] auto _ : state) {
    FILE* const pipe = popen(command.c_str(), "r");
    double seconds = 0;
    const int read = pipe != nullptr ? std::fscanf(pipe, "%lf", &seconds) : 0;
    if (pipe != nullptr) pclose(pipe);
    if (read != 1) {
      state.SkipWithError("not installed");
      break;
    }
    state.SetIterationTime(seconds);
  }
}

const bool registered = [] {
  constexpr std::size_t kLength = 4000000;
  const std::pair<const char*, std::string> texts[] = {
      {"prose", vstring_bench::prose(kLength)},
      {"dna", random_text(kLength, "ACGT", 1)},
      {"bytes", random_text(kLength, all_bytes(), 1)},
      {"fibonacci", vstring_bench::fibonacci_word(kLength)},
  };
  struct Job {
    const char* name;
    const char* who;
    std::int64_t (*answer)(const std::string&);
  };
  const Job jobs[] = {
      {"suffixarray", "ours", suffix_array},
      {"bwt", "ours", transform},
#ifdef VSTRING_PEER_DIVSUFSORT
      {"suffixarray", "divsufsort", divsufsort_array},
      {"bwt", "divsufsort", divsufsort_transform},
#endif
      {"repetitions", "ours", repetitions},
  };
  const Job halves[] = {{"lcsubstring", "ours", common_factor},
                        {"lcsubstring", "automaton", automaton_factor}};
  const auto name = [](const Job& job, const char* kind) {
    return std::string(job.name) + "/" + kind + "/" + job.who;
  };
  for (const auto& [kind, text] : texts) {
    for (const Job& job : jobs) {
      benchmark::RegisterBenchmark(name(job, kind).c_str(), measure, job.answer, text)
          ->Unit(benchmark::kMillisecond);
    }
    for (const Job& job : halves) {  // the automaton takes 2 kB a letter
      benchmark::RegisterBenchmark(name(job, kind).c_str(), measure, job.answer,
                                   text.substr(0, 200000))
          ->Unit(benchmark::kMillisecond);
    }
  }
  struct PairJob {
    const char* name;
    std::int64_t (*answer)(const std::string&, const std::string&);
  };
  const PairJob pair_jobs[] = {
      {"edits/%s/ours", edits},
#ifdef VSTRING_PEER_EDLIB
      {"edits/%s/edlib", edlib_path},
#endif
      {"align/%s/ours", align},
      {"partialratio/%s/ours", partial_ratio},
  };
  for (const PairJob& job : pair_jobs) {
    for (const bool alike : {false, true}) {
      for (const std::size_t n : {100U, 1000U, 10000U}) {
        char title[64];
        std::snprintf(title, sizeof title, job.name, alike ? "alike" : "unlike");
        benchmark::RegisterBenchmark((title + ("/" + std::to_string(n))).c_str(), measure_pair,
                                     job.answer, n, alike);
      }
    }
  }
  return true;
}();

BENCHMARK(closest)->Name("closest/web2/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(compare_words, jaro, vstring::words::jaro)
    ->Name("jaro/dictionary/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(compare_words, damerau, vstring::words::damerau_distance)
    ->Name("damerau/dictionary/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(tally)->Name("tally/prose/ours")->Unit(benchmark::kMillisecond);

#define VSTRING_PYTHON(job, import, statement)            \
  BENCHMARK_CAPTURE(python, statement, import, statement) \
      ->Name(job)                                         \
      ->Iterations(1)                                     \
      ->UseManualTime()                                   \
      ->Unit(benchmark::kMillisecond)
VSTRING_PYTHON("closest/web2/jellyfish", "import jellyfish",
               "sorted((jellyfish.levenshtein_distance(\"appelation\", w), i) "
               "for i, w in enumerate(many))[:5]");
VSTRING_PYTHON("jaro/dictionary/jellyfish", "import jellyfish",
               "[jellyfish.jaro_similarity(s, t) for s, t in zip(words, words[1:])]");
VSTRING_PYTHON("damerau/dictionary/jellyfish", "import jellyfish",
               "[jellyfish.damerau_levenshtein_distance(s, t) for s, t in zip(words, words[1:])]");
VSTRING_PYTHON("tally/prose/counter", "import collections", "collections.Counter(tokens)");

}  // namespace
