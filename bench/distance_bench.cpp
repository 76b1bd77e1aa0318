// Levenshtein distance, beside edlib: words without likeness and words that differ in a twentieth
// of their letters. The rate is that of cells of the whole matrix.
#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "texts.h"
#include "words/likeness/distance.h"
#include "words/likeness/levenshtein.h"
#ifdef VSTRING_PEER_EDLIB
#include <edlib.h>
#endif

namespace {

using vstring::Byte;
using vstring::Bytes;
using vstring_bench::bytes;

std::size_t ours(const std::string& s, const std::string& t) {
  return *vstring::words::levenshtein(bytes(s), bytes(t));
}

#ifdef VSTRING_PEER_EDLIB
std::size_t edlib(const std::string& s, const std::string& t) {
  const EdlibAlignResult result =
      edlibAlign(s.data(), static_cast<int>(s.size()), t.data(), static_cast<int>(t.size()),
                 edlibNewAlignConfig(-1, EDLIB_MODE_NW, EDLIB_TASK_DISTANCE, nullptr, 0));
  const auto distance = static_cast<std::size_t>(result.editDistance);
  edlibFreeAlignResult(result);
  return distance;
}
#endif

std::string random_word(std::size_t n, std::mt19937& engine) {
  std::string word(n, '\0');
  for (char& c : word) c = static_cast<char>('a' + engine() % 20);
  return word;
}

std::string edited(std::string word, std::mt19937& engine) {
  for (std::size_t i = 0; i < 1 + word.size() / 20; ++i) {
    const std::size_t at = engine() % word.size();
    switch (engine() % 3) {
      case 0:
        word.erase(at, 1);
        break;
      case 1:
        word.insert(at, "x");
        break;
      default:
        word[at] = 'y';
    }
  }
  return word;
}

template <typename Distance>
void measure(benchmark::State& state, Distance distance, bool alike) {
  const auto n = static_cast<std::size_t>(state.range(0));
  std::mt19937 engine(static_cast<unsigned>(n));
  const std::string s = random_word(n, engine);
  const std::string t = alike ? edited(s, engine) : random_word(n, engine);
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(distance(s, t));
  state.counters["cells"] = benchmark::Counter(static_cast<double>(n) * static_cast<double>(n),
                                               benchmark::Counter::kIsIterationInvariantRate);
}

#define VSTRING_LENGTHS Arg(8)->Arg(64)->Arg(1000)->Arg(10000)->Arg(100000)
BENCHMARK_CAPTURE(measure, ours, ours, false)->Name("levenshtein/unlike/ours")->VSTRING_LENGTHS;
BENCHMARK_CAPTURE(measure, ours, ours, true)->Name("levenshtein/alike/ours")->VSTRING_LENGTHS;
#ifdef VSTRING_PEER_EDLIB
BENCHMARK_CAPTURE(measure, edlib, edlib, false)->Name("levenshtein/unlike/edlib")->VSTRING_LENGTHS;
BENCHMARK_CAPTURE(measure, edlib, edlib, true)->Name("levenshtein/alike/edlib")->VSTRING_LENGTHS;
#endif

void linear(benchmark::State& state, std::size_t (*distance)(Bytes, Bytes)) {
  std::mt19937 engine(1);
  const std::string s = random_word(1 << 20, engine);
  const std::string t = s;
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(distance(bytes(s), bytes(t)));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.size()));
}
BENCHMARK_CAPTURE(linear, hd, vstring::words::hamming_distance)->Name("hd/ours");
BENCHMARK_CAPTURE(linear, leedist, vstring::words::lee_distance)->Name("leedist/ours");
BENCHMARK_CAPTURE(linear, prefixdist, vstring::words::prefix_distance)->Name("prefixdist/ours");
BENCHMARK_CAPTURE(linear, suffixdist, vstring::words::suffix_distance)->Name("suffixdist/ours");

}  // namespace
