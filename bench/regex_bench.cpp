// Regular expressions beside PCRE2 with its compiler, RE2 and Hyperscan: first match, absence, all
// matches and replacing them all, in a megabyte of prose and one of source code; and patterns that
// backtracking does not survive. By engine, without the host.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "search/regex/matcher.h"
#include "search/regex/prepare.h"
#include "search/regex/replace.h"
#include "texts.h"
#ifdef VSTRING_PEER_PCRE2
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>
#endif
#ifdef VSTRING_PEER_RE2
#include <re2/re2.h>
#endif
#ifdef VSTRING_PEER_HYPERSCAN
#include <hs.h>
#endif

namespace {

using namespace vstring::regex;
using vstring::Byte;
using vstring::Bytes;
using vstring_bench::bytes;
using vstring_bench::repeated_files;

constexpr std::size_t kTextSize = 1 << 20;

const std::string& licences() {
  static const std::string text = repeated_files(
      {"/usr/share/common-licenses/GPL-3", "/usr/share/common-licenses/Artistic"}, kTextSize);
  return text;
}

const std::string& source() {
  static const std::string text =
      repeated_files({"/usr/include/stdio.h", "/usr/include/stdlib.h", "/usr/include/elf.h",
                      "/usr/include/pthread.h", "/usr/include/unistd.h", "/usr/include/math.h"},
                     kTextSize);
  return text;
}

struct Pattern {
  const char* name;
  const char* text;
  const std::string& (*where)();
};

constexpr Pattern kPatterns[] = {
    {"literal", "warranty", licences},
    {"vowel", "[aeiou]", licences},
    {"capitalised", "[A-Z][a-z]+", licences},
    {"alternatives", "license|software|patent", licences},
    {"ending", "[a-z]+ing", licences},
    {"between", "the ([a-z]+) of", licences},
    {"pair", "([A-Za-z]+) ([A-Za-z]+)", licences},
    {"letters", "(a|e|i)(b|c|d|n|s)", licences},
    {"last", "[a-z]+$", licences},
    {"number", "[0-9]+", source},
    {"call", "([A-Za-z_]+) *\\(", source},
    {"comment", "/\\*[^*]*\\*/", source},
    {"define", "#define[ \t]+([A-Za-z_]+)", source},
    {"keyword", "(extern|typedef|struct) ([a-z_]+)", source},
    {"segments", "([a-z]+_)+[a-z]+", source},
};

// A pattern compiled by one engine.
class Ours {
 public:
  explicit Ours(const std::string& pattern)
      : regex_(vrx_regcomp(pattern.c_str())), plan_(make_plan(*regex_)) {}
  ~Ours() {
    std::free(plan_);
    std::free(regex_);
  }
  Ours(const Ours&) = delete;
  Ours& operator=(const Ours&) = delete;

  bool first(const std::string& text) const {
    Match match;
    return Matcher(*plan_, bytes(text)).find(0, match) == Outcome::match;
  }
  std::size_t all(const std::string& text) const {
    Matcher matcher(*plan_, bytes(text));
    Match match;
    std::size_t n = 0;
    for (std::size_t at = 0; matcher.find(at, match) == Outcome::match; ++n) at = match.end();
    return n;
  }
  std::size_t replace(const std::string& text) const {
    vstring::Buffer<Byte> result;
    replace_all(*plan_, bytes(text), bytes(kTemplate), result);
    return result.size();
  }

 private:
  inline static const std::string kTemplate = "<&>";
  VstringRegex* regex_;
  Plan* plan_;
};

#ifdef VSTRING_PEER_PCRE2
class Pcre2 {
 public:
  explicit Pcre2(const std::string& pattern) {
    int error = 0;
    std::size_t at = 0;
    code_ = pcre2_compile(text_of(pattern), pattern.size(), PCRE2_DOTALL, &error, &at, nullptr);
    pcre2_jit_compile(code_, PCRE2_JIT_COMPLETE);
    data_ = pcre2_match_data_create_from_pattern(code_, nullptr);
  }
  ~Pcre2() {
    pcre2_match_data_free(data_);
    pcre2_code_free(code_);
  }
  Pcre2(const Pcre2&) = delete;
  Pcre2& operator=(const Pcre2&) = delete;

  bool first(const std::string& text) const { return find(text, 0); }
  std::size_t all(const std::string& text) const {
    std::size_t n = 0;
    for (std::size_t at = 0; find(text, at); ++n) at = pcre2_get_ovector_pointer(data_)[1];
    return n;
  }
  std::size_t replace(const std::string& text) const {
    std::size_t length = 4 * text.size();
    auto* const result = static_cast<PCRE2_UCHAR*>(std::malloc(length));
    pcre2_substitute(code_, text_of(text), text.size(), 0, PCRE2_SUBSTITUTE_GLOBAL, data_, nullptr,
                     text_of("<$0>"), 4, result, &length);
    std::free(result);
    return length;
  }

 private:
  static PCRE2_SPTR text_of(const std::string& text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data());
  }
  bool find(const std::string& text, std::size_t at) const {
    return pcre2_match(code_, text_of(text), text.size(), at, 0, data_, nullptr) > 0;
  }
  pcre2_code* code_;
  pcre2_match_data* data_;
};
#endif

#ifdef VSTRING_PEER_RE2
class Re2 {
 public:
  explicit Re2(const std::string& pattern) : regex_("(" + pattern + ")", options()) {}

  bool first(const std::string& text) const { return find(text, 0, nullptr); }
  std::size_t all(const std::string& text) const {
    re2::StringPiece match;
    std::size_t n = 0;
    for (std::size_t at = 0; find(text, at, &match); ++n)
      at = static_cast<std::size_t>(match.data() - text.data()) + match.size();
    return n;
  }
  std::size_t replace(const std::string& text) const {
    std::string result = text;
    RE2::GlobalReplace(&result, regex_, "<\\0>");
    return result.size();
  }

 private:
  static RE2::Options options() {
    RE2::Options options(RE2::Latin1);
    options.set_dot_nl(true);
    return options;
  }
  bool find(const std::string& text, std::size_t at, re2::StringPiece* match) const {
    return regex_.Match(text, at, text.size(), RE2::UNANCHORED, match, match == nullptr ? 0 : 1);
  }
  RE2 regex_;
};
#endif

#ifdef VSTRING_PEER_HYPERSCAN
// Tells only that there is a match, and where it ends.
class Hyperscan {
 public:
  explicit Hyperscan(const std::string& pattern) {
    hs_compile_error_t* error = nullptr;
    hs_compile(pattern.c_str(), HS_FLAG_DOTALL | HS_FLAG_SINGLEMATCH | HS_FLAG_ALLOWEMPTY,
               HS_MODE_BLOCK, nullptr, &database_, &error);
    hs_free_compile_error(error);
    if (database_ != nullptr) hs_alloc_scratch(database_, &scratch_);
  }
  ~Hyperscan() {
    hs_free_scratch(scratch_);
    hs_free_database(database_);
  }
  Hyperscan(const Hyperscan&) = delete;
  Hyperscan& operator=(const Hyperscan&) = delete;

  bool first(const std::string& text) const {
    const auto stop = [](unsigned, unsigned long long, unsigned long long, unsigned, void*) {
      return 1;
    };
    return database_ != nullptr &&
           hs_scan(database_, text.data(), static_cast<unsigned>(text.size()), 0, scratch_, stop,
                   nullptr) == HS_SCAN_TERMINATED;
  }

 private:
  hs_database_t* database_ = nullptr;
  hs_scratch_t* scratch_ = nullptr;
};
#endif

template <typename Engine>
void add(const std::string& engine) {
  const auto name = [&](const char* job, const char* pattern) {
    return "regex_" + std::string(job) + "/" + pattern + "/" + engine;
  };
  const auto run = [](benchmark::State& state, const std::string& text, const auto& work) {
    for (auto _ : state) benchmark::DoNotOptimize(work(text));
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) *
                            static_cast<std::int64_t>(state.iterations()));
  };
  for (const Pattern& pattern : kPatterns) {
    const auto job = [&](const char* what, const std::string& regex, auto method) {
      benchmark::RegisterBenchmark(name(what, pattern.name).c_str(), [=](benchmark::State& state) {
        const Engine compiled(regex);
        run(state, pattern.where(), [&](const std::string& t) { return method(compiled, t); });
      });
    };
    job("first", pattern.text, [](const Engine& e, const std::string& t) { return e.first(t); });
    job("absent", "(" + std::string(pattern.text) + ")\1",
        [](const Engine& e, const std::string& t) { return e.first(t); });
    if constexpr (requires(Engine e, std::string t) { e.replace(t); }) {
      job("all", pattern.text, [](const Engine& e, const std::string& t) { return e.all(t); });
      job("replace", pattern.text,
          [](const Engine& e, const std::string& t) { return e.replace(t); });
    }
  }
  // Refused for want of a byte, or only after all has been tried.
  for (const char* const worst : {"(a|aa)+b", "(a+a+)+[yz]", "((a|b)*c)*[de]", "(a|aa)+(b|c)",
                                  "(a+a+)+(y|z)", "((a|b)*c)*(d|e)"}) {
    benchmark::RegisterBenchmark(name("worst", worst).c_str(), [=](benchmark::State& state) {
      const Engine compiled(worst);
      run(state, std::string(kTextSize, 'a'),
          [&](const std::string& t) { return compiled.first(t); });
    });
  }
}

[[maybe_unused]] const bool added = [] {
  add<Ours>("ours");
#ifdef VSTRING_PEER_PCRE2
  add<Pcre2>("pcre2");
#endif
#ifdef VSTRING_PEER_RE2
  add<Re2>("re2");
#endif
#ifdef VSTRING_PEER_HYPERSCAN
  add<Hyperscan>("hyperscan");
#endif
  return true;
}();

}  // namespace
