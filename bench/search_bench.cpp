// One pattern, exactly: the first occurrence and all of them, beside memmem, which has no form for
// all and is called again behind each occurrence.
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "search/exact/exact.h"
#include "search/exact/mismatch.h"
#include "texts.h"

namespace vstring_bench {
namespace {

using vstring::Byte;
using vstring::Bytes;

constexpr std::size_t kLength = 4'000'000;

struct Workload {
  const char* name;
  std::string text;
  std::string pattern;
};

std::string letters(const char* alphabet, std::size_t n, unsigned seed) {
  std::mt19937 engine(seed);
  std::string text(n, '\0');
  for (char& c : text) c = alphabet[engine() % std::strlen(alphabet)];
  return text;
}

const std::vector<Workload>& workloads() {
  static const std::vector<Workload> made = [] {
    const std::string words = prose(kLength);
    const std::string dna = letters("acgt", kLength, 1);
    const std::string power(kLength, 'a');
    const std::string fibonacci = fibonacci_word(kLength);
    return std::vector<Workload>{
        {"prose, one byte", words, "e"},
        {"prose, common", words, "ing "},
        {"prose, rare", words + "Aqueduct Zephyr", "Aqueduct Zephyr"},
        {"prose, absent", words, "an absent phrase, of some length"},
        {"dna, 8", dna, letters("acgt", 8, 7)},
        {"dna, 32 absent", dna, letters("acgt", 32, 2)},
        {"dna, 200 absent", dna, letters("acgt", 200, 3)},
        {"a^63 b in a^n", power, std::string(63, 'a') + "b"},
        {"b a^63 in a^n", power, "b" + std::string(63, 'a')},
        {"a^31 b a^32 in a^n", power, std::string(31, 'a') + "b" + std::string(32, 'a')},
        {"a^300 b a^300 in a^n", power, std::string(300, 'a') + "b" + std::string(300, 'a')},
        {"Fibonacci", fibonacci, fibonacci.substr(0, 377) + "aa"},
        {"a^32 in a^n", power, std::string(32, 'a')},
        {"abaab in Fibonacci", fibonacci, "abaab"},
    };
  }();
  return made;
}

std::size_t next_by_memmem(const Workload& w, std::size_t from) {
  const void* const found =
      memmem(w.text.data() + from, w.text.size() - from, w.pattern.data(), w.pattern.size());
  if (found == nullptr) return vstring::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - w.text.data());
}

std::size_t first_ours(const Workload& w) {
  return vstring::search::find(bytes(w.pattern), bytes(w.text));
}

std::size_t first_memmem(const Workload& w) { return next_by_memmem(w, 0); }

std::size_t all_ours(const Workload& w) {
  vstring::Buffer<std::size_t> found;
  (void)vstring::search::find_all(bytes(w.pattern), bytes(w.text), found);
  return found.size();
}

std::size_t all_memmem(const Workload& w) {
  vstring::Buffer<std::size_t> found;
  for (std::size_t at = next_by_memmem(w, 0); at != vstring::npos; at = next_by_memmem(w, at + 1)) {
    (void)found.push_back(at);
  }
  return found.size();
}

std::size_t mismatched_ours(const Workload& w) {
  vstring::Buffer<vstring::search::Alignment> found;
  (void)vstring::search::find_all_mismatched(bytes(w.pattern), bytes(w.text), 3, found);
  return found.size();
}

template <std::size_t (*find)(const Workload&)>
void search(benchmark::State& state) {
  const Workload& w = workloads()[static_cast<std::size_t>(state.range(0))];
  for (auto _ : state) benchmark::DoNotOptimize(find(w));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(w.text.size()));
  state.SetLabel(w.name);
}

// The first two workloads occur at once; the last two everywhere.
BENCHMARK(search<first_ours>)->Name("search_first/ours")->DenseRange(2, 11);
BENCHMARK(search<first_memmem>)->Name("search_first/memmem")->DenseRange(2, 11);
BENCHMARK(search<all_ours>)->Name("search_all/ours")->DenseRange(0, 13);
BENCHMARK(search<all_memmem>)->Name("search_all/memmem")->DenseRange(0, 13);
BENCHMARK(search<mismatched_ours>)->Name("search_3_mismatches/ours")->DenseRange(2, 13);

}  // namespace
}  // namespace vstring_bench
