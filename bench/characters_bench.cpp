// Characters, joining, sorting and wildcards on 1 MB, each beside libc or the textbook.
#include <benchmark/benchmark.h>
#include <fnmatch.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "heap/velmor_runtime.h"

namespace {

constexpr std::size_t kSize = 1 << 20;

// A million bytes of words in mixed case.
const std::string& mixed_case() {
  static const std::string text = [] {
    const char* const kWords[] = {"the ",    "Quick ", "brown ", "fox ",
                                  "jumps\n", "over ",  "a ",     "LAZY "};
    std::string made;
    for (std::uint32_t state = 1; made.size() < kSize; state = state * 1664525 + 1013904223) {
      made += kWords[state >> 29];
    }
    made.resize(kSize);
    return made;
  }();
  return text;
}

// Calls the command with the arguments once per iteration; bytes are those of the text.
class Call {
 public:
  VelmorHeap* heap = velmor_heap_new();
  ~Call() { velmor_heap_free(heap); }

  HostObject text(const std::string& bytes) {
    return velmor_string_n(heap, bytes.data(), bytes.size());
  }

  void run(benchmark::State& state, VelmorCommand command, std::vector<HostObject> arguments) {
    const HostObject argseq = velmor_sequence(heap, arguments.size(), arguments.data());
    velmor_root(heap, argseq);
    std::size_t calls = 0;
    for (auto _ : state) {
      HostObject result = 0;
      if (velmor_call(heap, command, argseq, &result) == 0) {
        state.SkipWithError(velmor_error(heap));
        break;
      }
      benchmark::DoNotOptimize(result);
      if (++calls % 8 == 0) {
        state.PauseTiming();
        velmor_collect(heap);
        state.ResumeTiming();
      }
    }
    state.SetBytesProcessed(state.iterations() * std::int64_t{kSize});
  }
};

// The textbook's or libc's way to make a text, handed to the host as ours is.
template <typename Make>
void peer_text(benchmark::State& state, Make make) {
  Call call;
  std::size_t calls = 0;
  for (auto _ : state) {
    const std::string result = make(mixed_case());
    benchmark::DoNotOptimize(velmor_string(call.heap, result.c_str()));
    if (++calls % 8 == 0) {
      state.PauseTiming();
      velmor_collect(call.heap);
      state.ResumeTiming();
    }
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{kSize});
}

template <typename Ask>
void peer_question(benchmark::State& state, Ask ask) {
  for (auto _ : state) benchmark::DoNotOptimize(ask(mixed_case()));
  state.SetBytesProcessed(state.iterations() * std::int64_t{kSize});
}

void on_text(benchmark::State& state, VelmorCommand command) {
  Call call;
  call.run(state, command, {call.text(mixed_case())});
}

void lowercase(benchmark::State& state) { on_text(state, vstring_lowercase); }
void lowercase_tolower(benchmark::State& state) {
  peer_text(state, [](std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
  });
}

void capitalise(benchmark::State& state) { on_text(state, vstring_capitalise); }
void capitalise_textbook(benchmark::State& state) {
  peer_text(state, [](std::string text) {
    bool inside = false;
    for (char& c : text) {
      const int code = static_cast<unsigned char>(c);
      c = static_cast<char>(inside ? std::tolower(code) : std::toupper(code));
      inside = std::isalnum(code) != 0;
    }
    return text;
  });
}

void tr(benchmark::State& state) {
  Call call;
  call.run(state, vstring_tr, {call.text("aeiou"), call.text("AEIOU"), call.text(mixed_case())});
}
void tr_strchr(benchmark::State& state) {
  peer_text(state, [](std::string text) {
    for (char& c : text) {
      const char* const found = std::strchr("aeiou", c);
      if (found != nullptr) c = "AEIOU"[found - std::strchr("aeiou", 'a')];
    }
    return text;
  });
}

void sort(benchmark::State& state) { on_text(state, vstring_sort); }
void sort_std(benchmark::State& state) {
  peer_text(state, [](std::string text) {
    std::sort(text.begin(), text.end());
    return text;
  });
}

void split(benchmark::State& state) { on_text(state, vstring_split); }
void split_strtok(benchmark::State& state) {
  Call call;
  std::size_t calls = 0;
  for (auto _ : state) {
    std::string copy = mixed_case();
    std::vector<HostObject> fields;
    char* rest = nullptr;
    for (char* field = strtok_r(copy.data(), " \t\n\f\r", &rest); field != nullptr;
         field = strtok_r(nullptr, " \t\n\f\r", &rest)) {
      fields.push_back(velmor_string(call.heap, field));
    }
    benchmark::DoNotOptimize(velmor_list(call.heap, fields.size(), fields.data()));
    if (++calls % 8 == 0) {
      state.PauseTiming();
      velmor_collect(call.heap);
      state.ResumeTiming();
    }
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{kSize});
}

std::vector<std::string> words() {
  std::vector<std::string> found;
  std::string copy = mixed_case();
  char* rest = nullptr;
  for (char* word = strtok_r(copy.data(), " \n", &rest); word != nullptr;
       word = strtok_r(nullptr, " \n", &rest)) {
    found.emplace_back(word);
  }
  return found;
}

void join(benchmark::State& state) {
  Call call;
  std::vector<HostObject> elements;
  for (const std::string& word : words()) elements.push_back(call.text(word));
  call.run(state, vstring_join, {velmor_list(call.heap, elements.size(), elements.data())});
}
void join_append(benchmark::State& state) {
  const std::vector<std::string> all = words();
  peer_text(state, [&](const std::string&) {
    std::string joined = all[0];
    for (std::size_t i = 1; i < all.size(); ++i) joined.append(" ").append(all[i]);
    return joined;
  });
}

void isprint(benchmark::State& state) {
  Call call;
  std::string text = mixed_case();
  std::replace(text.begin(), text.end(), '\n', ' ');
  call.run(state, vstring_isprint, {call.text(text)});
}
void isprint_libc(benchmark::State& state) {
  peer_question(state, [](const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) {
      return std::isprint(static_cast<unsigned char>(c)) != 0 || c == '\n';
    });
  });
}

void hasdigit(benchmark::State& state) { on_text(state, vstring_hasdigit); }
void hasdigit_strpbrk(benchmark::State& state) {
  peer_question(state, [](const std::string& text) {
    return std::strpbrk(text.c_str(), "0123456789") != nullptr;
  });
}

void issorted(benchmark::State& state) {
  Call call;
  std::string text = mixed_case();
  std::sort(text.begin(), text.end());
  call.run(state, vstring_issorted, {call.text(text)});
}
void issorted_std(benchmark::State& state) {
  std::string text = mixed_case();
  std::sort(text.begin(), text.end());
  peer_question(state,
                [&](const std::string&) { return std::is_sorted(text.begin(), text.end()); });
}

// Patterns of each kind: a literal that is absent, one that is common, sets, and a run of stars.
const char* const kPatterns[] = {"*absent words*", "*fox*LAZY*fox*", "*[xyz]o[^a-u]*!",
                                 "*o*o*o*o*o*o*!"};

void wild(benchmark::State& state) {
  Call call;
  call.run(state, vstring_wild, {call.text(kPatterns[state.range(0)]), call.text(mixed_case())});
  state.SetLabel(kPatterns[state.range(0)]);
}
void wild_fnmatch(benchmark::State& state) {
  peer_question(state, [&](const std::string& text) {
    return fnmatch(kPatterns[state.range(0)], text.c_str(), 0);
  });
  state.SetLabel(kPatterns[state.range(0)]);
}

BENCHMARK(lowercase)->Name("lowercase/ours");
BENCHMARK(lowercase_tolower)->Name("lowercase/tolower");
BENCHMARK(capitalise)->Name("capitalise/ours");
BENCHMARK(capitalise_textbook)->Name("capitalise/textbook");
BENCHMARK(tr)->Name("tr/ours");
BENCHMARK(tr_strchr)->Name("tr/strchr");
BENCHMARK(sort)->Name("sort/ours");
BENCHMARK(sort_std)->Name("sort/std");
BENCHMARK(split)->Name("split/ours");
BENCHMARK(split_strtok)->Name("split/strtok");
BENCHMARK(join)->Name("join/ours");
BENCHMARK(join_append)->Name("join/append");
BENCHMARK(isprint)->Name("isprint/ours");
BENCHMARK(isprint_libc)->Name("isprint/libc");
BENCHMARK(hasdigit)->Name("hasdigit/ours");
BENCHMARK(hasdigit_strpbrk)->Name("hasdigit/strpbrk");
BENCHMARK(issorted)->Name("issorted/ours");
BENCHMARK(issorted_std)->Name("issorted/std");
BENCHMARK(wild)->Name("wild/ours")->DenseRange(0, 3);
BENCHMARK(wild_fnmatch)->Name("wild/fnmatch")->DenseRange(0, 3);

}  // namespace
