// Wrapping, tabs, ends, words, Porter stems, Soundex keys and formatted times.
#include <benchmark/benchmark.h>

#include <cctype>
#include <ctime>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "host/vstring.h"
#include "runtime/growing_text.h"
#include "text/extraction/words.h"
#include "text/language/metaphone.h"
#include "text/language/porter.h"
#include "text/language/soundex.h"
#include "text/layout/ends.h"
#include "text/layout/tabs.h"
#include "text/layout/wrap.h"
#include "texts.h"
#include "velmor_runtime.h"
#ifdef VSTRING_PEER_STEMMER
#include <libstemmer.h>
#endif

namespace {

using vstring::Byte;
using vstring::Bytes;
using vstring_bench::bytes;

// English prose.
std::string licence(std::size_t length) {
  return vstring_bench::repeated_files({"/usr/share/common-licenses/GPL-3"}, length);
}

// The words of the dictionary, a line each; those of a licence where there is none.
const std::vector<std::string>& words() {
  static const std::vector<std::string> all = [] {
    std::ifstream in("/usr/share/dict/american-english");
    if (!in) in.open("/usr/share/common-licenses/GPL-3");
    std::vector<std::string> list;
    for (std::string word; in >> word;) {
      for (char& c : word) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
      if (word.find_first_not_of("abcdefghijklmnopqrstuvwxyz") == std::string::npos) {
        list.push_back(word);
      }
    }
    return list;
  }();
  return all;
}

void wrap(benchmark::State& state, const std::string& text, vstring::text::WrapSettings settings) {
  std::vector<Byte> room(10 * text.size());  // more than blanks in place of tabs can need
  for (auto _ : state) {
    vstring::GrowingText out(room.data(), room.size());
    benchmark::DoNotOptimize(vstring::text::wrap(bytes(text), settings, out));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

// The whole command, with the host's string.
void wrap_command(benchmark::State& state) {
  VelmorHeap* const heap = velmor_heap_new();
  const std::string text = licence(static_cast<std::size_t>(state.range(0)));
  const HostObject items[] = {velmor_string(heap, text.c_str()), velmor_integer(heap, 72)};
  const HostObject argseq = velmor_sequence(heap, 2, items);
  velmor_root(heap, argseq);
  for (auto _ : state) {
    HostObject result = 0;
    if (velmor_call(heap, vstring_wrap, argseq, &result) == 0) state.SkipWithError("");
    state.PauseTiming();
    velmor_collect(heap);
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
  velmor_heap_free(heap);
}
BENCHMARK(wrap_command)->Name("wrap_command/ours")->Arg(1000)->Arg(10'000'000);

// What `work` does to a text once per iteration.
template <typename Work>
void each_text(benchmark::State& state, const std::string& text, Work work) {
  for (auto _ : state) benchmark::DoNotOptimize(work(text));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

std::size_t our_words(const std::string& text) {
  vstring::HeldArray<Bytes> found;
  benchmark::DoNotOptimize(vstring::text::find_words(bytes(text), found));
  const std::size_t count = found.size();
  found.free();
  return count;
}

// Words as C has them: letters and digits.
std::size_t plain_words(const std::string& text) {
  std::vector<std::string_view> found;
  for (std::size_t i = 0; i < text.size();) {
    std::size_t end = i;
    while (end < text.size() && std::isalnum(static_cast<unsigned char>(text[end])) != 0) ++end;
    if (end > i) found.push_back(std::string_view(text).substr(i, end - i));
    i = end + 1;
  }
  return found.size();
}

std::size_t our_expansion(const std::string& text) {
  static std::vector<Byte> room;
  room.resize(vstring::text::expanded_length(bytes(text), 8));
  vstring::text::expand_tabs(bytes(text), 8, room);
  return room.size();
}

std::size_t plain_expansion(const std::string& text) {
  static std::string out;
  out.clear();
  std::size_t column = 0;
  for (const char c : text) {
    if (c == '\t') {
      do out += ' ';
      while (++column % 8 != 0);
    } else {
      out += c;
      column = c == '\n' || c == '\r' ? 0 : column + 1;
    }
  }
  return out.size();
}

std::size_t our_trim(const std::string& text) {
  return vstring::text::trim_space(bytes(text), vstring::text::Side::both).size();
}

std::size_t plain_trim(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t\n\v\f\r");
  return first == text.npos ? 0 : text.find_last_not_of(" \t\n\v\f\r") + 1 - first;
}

// One round of `code` over all words is an iteration; items are words.
template <typename Code>
void each_word(benchmark::State& state, Code code) {
  for (auto _ : state) {
    for (const std::string& word : words()) code(word);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(words().size()));
}

void porter(benchmark::State& state) {
  Byte stem[vstring::text::kLongestPorterWord];
  each_word(state, [&](const std::string& word) {
    benchmark::DoNotOptimize(vstring::text::porter(bytes(word), stem));
  });
}
BENCHMARK(porter)->Name("porter/ours");

#ifdef VSTRING_PEER_STEMMER
void porter_libstemmer(benchmark::State& state) {
  sb_stemmer* const stemmer = sb_stemmer_new("porter", nullptr);
  each_word(state, [&](const std::string& word) {
    benchmark::DoNotOptimize(sb_stemmer_stem(
        stemmer, reinterpret_cast<const sb_symbol*>(word.data()), static_cast<int>(word.size())));
  });
  sb_stemmer_delete(stemmer);
}
BENCHMARK(porter_libstemmer)->Name("porter/libstemmer");
#endif

void soundex(benchmark::State& state) {
  each_word(state, [](const std::string& word) {
    benchmark::DoNotOptimize(vstring::text::soundex(bytes(word)));
  });
}
BENCHMARK(soundex)->Name("soundex/ours");

void metaphone(benchmark::State& state) {
  Byte key[vstring::text::kLongestMetaphoneKey];
  each_word(state, [&](const std::string& word) {
    benchmark::DoNotOptimize(vstring::text::metaphone(bytes(word), key));
  });
}
BENCHMARK(metaphone)->Name("metaphone/ours");

void format_time(benchmark::State& state, decltype(my_strftime)* formatter) {
  const std::time_t when = 1'000'000'000;
  const std::tm record = *std::gmtime(&when);
  char text[100];
  for (auto _ : state) {
    benchmark::DoNotOptimize(formatter(text, sizeof text, "%Y-%m-%d %H:%M:%S", &record));
  }
}
BENCHMARK_CAPTURE(format_time, ours, my_strftime)->Name("format_time/ours");
BENCHMARK_CAPTURE(format_time, libc, std::strftime)->Name("format_time/libc");

const bool registered = [] {
  using vstring::text::WrapSettings;
  static const std::string text = licence(10'000'000);
  static const std::string blanks(10'000'000, ' ');
  static const std::string word(10'000'000, 'x');
  const WrapSettings narrow = {.width = 72};
  const WrapSettings obeying = {.width = 72, .obey_lines = true, .obey_spaces = true};
  benchmark::RegisterBenchmark("wrap/prose/ours", wrap, text, narrow);
  benchmark::RegisterBenchmark("wrap/prose_obeyed/ours", wrap, text, obeying);
  benchmark::RegisterBenchmark("wrap/blanks/ours", wrap, blanks, narrow);
  benchmark::RegisterBenchmark("wrap/one_word/ours", wrap, word, narrow);
  static const std::string prose = licence(1 << 20);
  static const std::string tabbed = [] {
    std::string made = prose;
    for (std::size_t i = 0; i < made.size(); i += 40) made[i] = '\t';
    return made;
  }();
  const auto both = [](const std::string& job, const std::string& input, auto ours, auto plain) {
    benchmark::RegisterBenchmark((job + "/ours").c_str(), [&input, ours](benchmark::State& state) {
      each_text(state, input, ours);
    });
    benchmark::RegisterBenchmark(
        (job + "/plain").c_str(),
        [&input, plain](benchmark::State& state) { each_text(state, input, plain); });
  };
  both("words", prose, our_words, plain_words);
  both("expand", tabbed, our_expansion, plain_expansion);
  both("trim", blanks, our_trim, plain_trim);
  return true;
}();

}  // namespace
