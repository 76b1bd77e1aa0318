// Engines for regular expressions, all with one face.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "harness/job.h"
#ifdef VSTRING_PEER_PCRE2
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>
#endif
#ifdef VSTRING_PEER_RE2
#include <re2/re2.h>
#endif
#ifdef VSTRING_PEER_RUST
#include "peers/rust/rust_peers.h"
#endif

namespace bench {

struct Span {
  std::size_t begin;
  std::size_t end;
};

// An engine has: whether it took the pattern; whether the text has a match, -1 for giving up; the
// text with all matches replaced by a template in its own notation; the matches.

#ifdef VSTRING_PEER_PCRE2
class Pcre2 {
 public:
  static constexpr const char* kWho = "PCRE2";
  explicit Pcre2(const std::string& pattern) {
    int error = 0;
    std::size_t at = 0;
    code_.reset(pcre2_compile(text_of(pattern), pattern.size(), PCRE2_DOTALL | PCRE2_DOLLAR_ENDONLY,
                              &error, &at, nullptr),
                pcre2_code_free);
    pcre2_jit_compile(code_.get(), PCRE2_JIT_COMPLETE);
    data_.reset(pcre2_match_data_create_from_pattern(code_.get(), nullptr), pcre2_match_data_free);
  }
  bool accepted() const { return code_ != nullptr; }
  int has(const std::string& text) const { return find(text, 0); }
  std::string replaced(const std::string& text, std::string by) const {
    for (char& c : by) c = c == '\\' ? '$' : c;
    std::string made(4 * text.size(), '\0');
    std::size_t length = made.size();
    pcre2_substitute(code_.get(), text_of(text), text.size(), 0, PCRE2_SUBSTITUTE_GLOBAL,
                     data_.get(), nullptr, text_of(by), by.size(),
                     reinterpret_cast<PCRE2_UCHAR*>(made.data()), &length);
    made.resize(length);
    return made;
  }
  std::vector<Span> matches(const std::string& text) const {
    std::vector<Span> found;
    const std::size_t* const at = pcre2_get_ovector_pointer(data_.get());
    while (find(text, found.empty() ? 0 : found.back().end) > 0) found.push_back({at[0], at[1]});
    return found;
  }

 private:
  static PCRE2_SPTR text_of(const std::string& text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data());
  }
  int find(const std::string& text, std::size_t from) const {
    const int count =
        pcre2_match(code_.get(), text_of(text), text.size(), from, 0, data_.get(), nullptr);
    return count > 0 ? 1 : count == PCRE2_ERROR_NOMATCH ? 0 : -1;
  }
  std::shared_ptr<pcre2_code> code_;
  std::shared_ptr<pcre2_match_data> data_;
};
#endif

#ifdef VSTRING_PEER_RE2
class Re2 {
 public:
  static constexpr const char* kWho = "RE2";
  explicit Re2(const std::string& pattern)
      : regex_(std::make_shared<RE2>(pattern, options())),
        whole_(std::make_shared<RE2>("(" + pattern + ")", options())) {}
  bool accepted() const { return regex_->ok(); }
  int has(const std::string& text) const {
    return regex_->Match(text, 0, text.size(), RE2::UNANCHORED, nullptr, 0) ? 1 : 0;
  }
  std::string replaced(const std::string& text, const std::string& by) const {
    std::string made = text;
    RE2::GlobalReplace(&made, *regex_, by);
    return made;
  }
  std::vector<Span> matches(const std::string& text) const {
    std::vector<Span> found;
    re2::StringPiece match;
    for (std::size_t from = 0; whole_->Match(text, from, text.size(), RE2::UNANCHORED, &match, 1);
         from = found.back().end) {
      const auto begin = static_cast<std::size_t>(match.data() - text.data());
      found.push_back({begin, begin + match.size()});
    }
    return found;
  }

 private:
  static RE2::Options options() {
    RE2::Options options(RE2::Latin1);
    options.set_dot_nl(true);
    return options;
  }
  std::shared_ptr<RE2> regex_;
  std::shared_ptr<RE2> whole_;
};
#endif

#ifdef VSTRING_PEER_RUST
class RustCrate {
 public:
  static constexpr const char* kWho = "Rust regex";
  explicit RustCrate(const std::string& pattern)
      : regex_(rust_regex_new(pattern.data(), pattern.size()), rust_regex_free) {}
  bool accepted() const { return regex_ != nullptr; }
  int has(const std::string& text) const {
    return rust_regex_has(regex_.get(), text.data(), text.size()) ? 1 : 0;
  }
  std::string replaced(const std::string& text, const std::string& by) const {
    std::string braced;  // $1 as ${1}
    for (const char c : by) {
      if (c == '\\') {
        braced += "${";
      } else {
        braced += c;
        if (braced.size() >= 3 && braced[braced.size() - 2] == '{') braced += '}';
      }
    }
    std::string made;
    rust_regex_replace(
        regex_.get(), text.data(), text.size(), braced.data(), braced.size(),
        [](void* into, std::size_t at, std::size_t n) {
          static_cast<std::string*>(into)->assign(reinterpret_cast<const char*>(at), n);
        },
        &made);
    return made;
  }
  std::vector<Span> matches(const std::string& text) const {
    std::vector<Span> found;
    rust_regex_matches(
        regex_.get(), text.data(), text.size(),
        [](void* all, std::size_t begin, std::size_t end) {
          static_cast<std::vector<Span>*>(all)->push_back({begin, end});
        },
        &found);
    return found;
  }

 private:
  std::shared_ptr<RustRegex> regex_;
};
#endif

// Adds a contestant for each engine that takes the pattern: the work that `work_of(engine)` gives.
template <typename WorkOf>
void add_engines(std::vector<Contestant>& contestants, const std::string& pattern, WorkOf work_of) {
  const auto add = [&]<typename Engine>(const Engine& engine) {
    if (engine.accepted()) contestants.push_back({Engine::kWho, work_of(engine)});
  };
#ifdef VSTRING_PEER_PCRE2
  add(Pcre2(pattern));
#endif
#ifdef VSTRING_PEER_RE2
  add(Re2(pattern));
#endif
#ifdef VSTRING_PEER_RUST
  add(RustCrate(pattern));
#endif
}

}  // namespace bench
