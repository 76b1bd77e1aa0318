// Combinatorics on words, beside the plain textbook loop for the same question.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "runtime/memory.h"
#include "texts.h"
#include "words/border.h"
#include "words/conjugate.h"
#include "words/lyndon.h"
#include "words/period.h"
#include "words/primitivity.h"

namespace {

using vstring::Byte;
using vstring::Bytes;
using vstring_bench::bytes;
using vstring_bench::fibonacci_word;

std::string random_word(std::size_t n, unsigned letters) {
  std::mt19937 engine(1);
  std::string word(n, '\0');
  for (char& c : word) c = static_cast<char>(1 + engine() % letters);
  return word;
}

std::string repeated(const std::string& u, std::size_t n) {
  std::string word;
  while (word.size() < n) word += u;
  return word.substr(0, n);
}

// ---- The textbook ----

std::size_t textbook_border(Bytes w) {
  std::vector<std::int32_t> f(w.size() + 1);
  std::int32_t k = f[0] = -1;
  for (std::size_t i = 0; i < w.size(); ++i) {
    while (k >= 0 && w[i] != w[static_cast<std::size_t>(k)]) k = f[static_cast<std::size_t>(k)];
    f[i + 1] = ++k;
  }
  return static_cast<std::size_t>(k);
}

std::size_t textbook_period(Bytes w) { return w.size() - textbook_border(w); }

int letter(Byte c) { return static_cast<signed char>(c); }

std::size_t textbook_lyndon(Bytes w) {  // Duval
  std::vector<std::size_t> ends;
  for (std::size_t k = 0; k < w.size();) {
    std::size_t i = k;
    std::size_t j = k + 1;
    for (; j < w.size() && letter(w[i]) <= letter(w[j]); ++j) {
      i = letter(w[i]) < letter(w[j]) ? k : i + 1;
    }
    for (; k <= i; k += j - i) ends.push_back(k + j - i);
  }
  return ends.size();
}

std::size_t textbook_rotation(Bytes w) {  // two candidates
  const std::size_t n = w.size();
  std::size_t i = 0;
  std::size_t j = 1;
  std::size_t k = 0;
  while (i < n && j < n && k < n) {
    const int a = letter(w[(i + k) % n]);
    const int b = letter(w[(j + k) % n]);
    if (a == b) {
      ++k;
      continue;
    }
    (a > b ? i : j) += k + 1;
    if (i == j) ++j;
    k = 0;
  }
  return std::min(i, j);
}

std::size_t textbook_root(Bytes w) {
  const std::size_t p = textbook_period(w);
  return w.size() % p == 0 ? p : w.size();
}

// ---- Ours ----

std::size_t period(Bytes w) { return *vstring::words::smallest_period(w); }
std::size_t border_array(Bytes w) {
  vstring::Buffer<std::uint32_t> border;
  if (!border.resize(w.size() + 1)) return 0;
  vstring::words::border_array<std::uint32_t>(w, {border.data(), border.size()});
  return border.back();
}
std::size_t lyndon(Bytes w) {  // counted and then walked through, as the command does
  vstring::words::LyndonFactors factors(w);
  std::size_t lengths = factors.count();
  for (Bytes u = factors.next(); !u.empty(); u = factors.next()) lengths += u.size();
  return lengths;
}

struct Question {
  const char* name;
  std::size_t (*ours)(Bytes);
  std::size_t (*textbook)(Bytes);
};

constexpr Question kQuestions[] = {
    {"period", period, textbook_period},
    {"borderarray", border_array, textbook_border},
    {"lynfac", lyndon, textbook_lyndon},
    {"minconj", vstring::words::least_rotation, textbook_rotation},
    {"primroot", vstring::words::primitive_root, textbook_root},
};

void measure(benchmark::State& state, std::size_t (*answer)(Bytes), const std::string& word) {
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(answer(bytes(word)));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(word.size()));
}

// Also at twice the length, to show that everything is linear.
const bool registered = [] {
  for (const std::size_t n : {std::size_t{1} << 20, std::size_t{1} << 21}) {
    const std::pair<const char*, std::string> words[] = {
        {"binary", random_word(n, 2)},
        {"bytes", random_word(n, 255)},
        {"periodic", repeated(random_word(1000, 4), n)},
        {"power", repeated(random_word(1024, 4), n)},
        {"fibonacci", fibonacci_word(n)},
        {"one_letter", std::string(n, 'a')},
        {"last_differs", std::string(n - 1, 'a') + "b"},
        {"last_smaller", std::string(n - 1, 'b') + "a"},
    };
    for (const Question& question : kQuestions) {
      for (const auto& [kind, word] : words) {
        const std::string name =
            std::string("words/") + question.name + "/" + kind + "/" + std::to_string(n);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), measure, question.ours, word);
        benchmark::RegisterBenchmark((name + "/textbook").c_str(), measure, question.textbook,
                                     word);
      }
    }
  }
  return true;
}();

}  // namespace
