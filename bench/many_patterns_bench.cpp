// Many patterns at once, beside Hyperscan: building, and scanning with a callback per match.
//
// Hyperscan reports where a match ends, in no stated order; the automaton also knows where it
// begins, and its order.
#include <benchmark/benchmark.h>

#include "host/vstring.h"
#include "texts.h"
#ifdef VSTRING_PEER_HYPERSCAN
#include <hs.h>
#endif

namespace vstring_bench {
namespace {

using Words = std::vector<std::string>;

struct Workload {
  Words patterns;
  std::string text;
};

const Workload& workload(std::int64_t which) {
  constexpr std::size_t kLength = 4'000'000;
  static const std::vector<Workload> workloads = [] {
    std::vector<Workload> made;
    for (const std::size_t n : {3, 30, 300, 3000}) made.push_back({some_words(n), prose(kLength)});
    Words all;
    for (std::size_t k = 0; k < vstring::search::kBuiltinWordCount; ++k) all.push_back(word(k));
    made.push_back({all, prose(kLength)});
    Words powers;
    for (std::size_t n = 1; n <= 64; ++n) powers.push_back(std::string(n, 'a'));
    made.push_back({powers, std::string(kLength / 64, 'a')});
    made.push_back(
        {{std::string(60, 'a') + "b", std::string(30, 'a') + "c"}, std::string(kLength, 'a')});
    return made;
  }();
  return workloads[static_cast<std::size_t>(which)];
}

const char* const kNames[] = {"3 words",    "30 words",  "300 words",    "3000 words",
                              "dictionary", "a^1..a^64", "a^60 b in a^n"};

void report(benchmark::State& state, std::size_t bytes, std::int64_t matches) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
  state.SetLabel(kNames[state.range(0)]);
  if (matches >= 0) state.counters["matches"] = static_cast<double>(matches);
}

VstringAutomaton* automaton_of(const Words& patterns) {
  VstringAutomaton* const automaton = ac_alloc();
  std::int32_t number = 0;
  for (const std::string& pattern : patterns) ac_insert(automaton, pattern.c_str(), ++number);
  ac_prep(automaton);
  return automaton;
}

void release(VstringAutomaton* automaton) {
  ac_free(automaton);
  std::free(automaton);
}

std::size_t total_length(const Words& words) {
  std::size_t n = 0;
  for (const std::string& each : words) n += each.size();
  return n;
}

void many_build(benchmark::State& state) {
  const Words& patterns = workload(state.range(0)).patterns;
  for (auto _ : state) release(automaton_of(patterns));
  report(state, total_length(patterns), -1);
}
BENCHMARK(many_build)->Name("many_build/ours")->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);

void many_scan(benchmark::State& state) {
  const auto& [patterns, text] = workload(state.range(0));
  VstringAutomaton* const automaton = automaton_of(patterns);
  std::int64_t matches = 0;
  for (auto _ : state) {
    matches = 0;
    const auto count = [](void* total, const char*, const char*, std::int32_t) {
      ++*static_cast<std::int64_t*>(total);
      return 1;
    };
    ac_search(automaton, text.c_str(), count, &matches);
  }
  release(automaton);
  report(state, text.size(), matches);
}
BENCHMARK(many_scan)->Name("many_scan/ours")->DenseRange(0, 6)->Unit(benchmark::kMillisecond);

#ifdef VSTRING_PEER_HYPERSCAN

hs_database_t* hyperscan_of(const Words& patterns) {
  std::vector<const char*> texts;
  std::vector<std::size_t> lengths;
  std::vector<unsigned> flags, numbers;
  for (const std::string& pattern : patterns) {
    texts.push_back(pattern.c_str());
    lengths.push_back(pattern.size());
    flags.push_back(0);
    numbers.push_back(static_cast<unsigned>(texts.size()));
  }
  hs_database_t* database = nullptr;
  hs_compile_error_t* error = nullptr;
  if (hs_compile_lit_multi(texts.data(), flags.data(), numbers.data(), lengths.data(),
                           static_cast<unsigned>(texts.size()), HS_MODE_BLOCK, nullptr, &database,
                           &error) != HS_SUCCESS) {
    hs_free_compile_error(error);
  }
  return database;
}

void many_build_hyperscan(benchmark::State& state) {
  const Words& patterns = workload(state.range(0)).patterns;
  for (auto _ : state) hs_free_database(hyperscan_of(patterns));
  report(state, total_length(patterns), -1);
}
BENCHMARK(many_build_hyperscan)
    ->Name("many_build/hyperscan")
    ->DenseRange(0, 4)
    ->Unit(benchmark::kMicrosecond);

void many_scan_hyperscan(benchmark::State& state) {
  const auto& [patterns, text] = workload(state.range(0));
  hs_database_t* const database = hyperscan_of(patterns);
  hs_scratch_t* scratch = nullptr;
  if (hs_alloc_scratch(database, &scratch) != HS_SUCCESS) {
    state.SkipWithError("Hyperscan refuses the patterns");
    return;
  }
  std::int64_t matches = 0;
  for (auto _ : state) {
    matches = 0;
    const auto count = [](unsigned, unsigned long long, unsigned long long, unsigned, void* total) {
      ++*static_cast<std::int64_t*>(total);
      return 0;
    };
    hs_scan(database, text.data(), static_cast<unsigned>(text.size()), 0, scratch, count, &matches);
  }
  hs_free_scratch(scratch);
  hs_free_database(database);
  report(state, text.size(), matches);
}
BENCHMARK(many_scan_hyperscan)
    ->Name("many_scan/hyperscan")
    ->DenseRange(0, 6)
    ->Unit(benchmark::kMillisecond);

#endif

}  // namespace
}  // namespace vstring_bench
