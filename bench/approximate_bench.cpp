// Approximate search in prose, beside edlib (which finds the ends of the best distance only) and
// TRE (which stops at its first match); the patterns do not occur, so that all scan the whole text.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "search/approximate/approximate.h"
#include "texts.h"
#ifdef VSTRING_PEER_EDLIB
#include <edlib.h>
#endif
#ifdef VSTRING_PEER_TRE
#include <tre/tre.h>
#endif

namespace vstring_bench {
namespace {

using vstring::Byte;
using vstring::Bytes;
using vstring::search::EditModel;

struct Workload {
  const char* name;
  std::string text;
  std::string pattern;
  int k;
};

// Words of English, so that stretches of the pattern do occur.
std::string phrase(std::size_t m) {
  const std::vector<std::string> words = some_words(60);
  std::string text;
  for (const std::string& each : words) text += each + "-";
  return text.substr(0, m);
}

const std::vector<Workload>& workloads() {
  static const std::vector<Workload> made = [] {
    const std::string words = prose(1'000'000);
    const std::string power(1'000'000, 'a');
    const std::string tail = std::string(9, 'b');
    return std::vector<Workload>{
        {"prose, m 10, k 1", words, phrase(10), 1},
        {"prose, m 10, k 3", words, phrase(10), 3},
        {"prose, m 32, k 1", words, phrase(32), 1},
        {"prose, m 32, k 3", words, phrase(32), 3},
        {"prose, m 64, k 8", words, phrase(64), 8},
        {"prose, m 200, k 8", words, phrase(200), 8},
        {"a^55 b^9 in a^n, k 8", power, std::string(55, 'a') + tail, 8},
        {"a^191 b^9 in a^n, k 8", power, std::string(191, 'a') + tail, 8},
    };
  }();
  return made;
}

template <EditModel model>
bool ours(const Workload& w) {
  vstring::Buffer<std::size_t> ends;
  return all_ends(bytes(w.pattern), bytes(w.text), w.k, model, ends) == vstring::Status::ok;
}

#ifdef VSTRING_PEER_EDLIB
bool edlib(const Workload& w) {
  const EdlibAlignResult result =
      edlibAlign(w.pattern.data(), static_cast<int>(w.pattern.size()), w.text.data(),
                 static_cast<int>(w.text.size()),
                 edlibNewAlignConfig(w.k, EDLIB_MODE_HW, EDLIB_TASK_DISTANCE, nullptr, 0));
  edlibFreeAlignResult(result);
  return result.status == EDLIB_STATUS_OK;
}
#endif

#ifdef VSTRING_PEER_TRE
bool tre(const Workload& w) {
  regex_t regex;
  if (tre_regncomp(&regex, w.pattern.data(), w.pattern.size(), REG_LITERAL | REG_NOSUB) != 0) {
    return false;
  }
  regaparams_t parameters;
  tre_regaparams_default(&parameters);
  parameters.max_cost = w.k;
  regamatch_t match = {};
  const int status = tre_reganexec(&regex, w.text.data(), w.text.size(), &match, parameters, 0);
  tre_regfree(&regex);
  return status == REG_NOMATCH;
}
#endif

template <bool (*find)(const Workload&)>
void approximate(benchmark::State& state) {
  const Workload& w = workloads()[static_cast<std::size_t>(state.range(0))];
  for (auto _ : state) {
    if (!find(w)) state.SkipWithError("failed");
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(w.text.size()));
  state.SetLabel(w.name);
}

BENCHMARK(approximate<ours<EditModel::bit_parallel>>)
    ->Name("approximate/bit_parallel")
    ->DenseRange(0, 7);
BENCHMARK(approximate<ours<EditModel::table>>)->Name("approximate/table")->DenseRange(0, 7);
#ifdef VSTRING_PEER_EDLIB
BENCHMARK(approximate<edlib>)->Name("approximate/edlib")->DenseRange(0, 7);
#endif
#ifdef VSTRING_PEER_TRE
BENCHMARK(approximate<tre>)->Name("approximate/tre")->DenseRange(0, 7);
#endif

}  // namespace
}  // namespace vstring_bench
