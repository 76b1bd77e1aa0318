// Combinatorics on words, beside the textbook's loop, exact search in ww, one memchr pass over the
// word, and a copy of it for the host.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "harness/job.h"
#include "harness/texts.h"

namespace bench {
namespace {

constexpr std::size_t kLength = 1 << 20;

struct Kind {
  const char* name;
  std::string (*word)();
};

const Kind kKinds[] = {
    {"random", [] { return noise().substr(0, kLength); }},
    {"letters", [] { return random_text(kLength, "abcdefghijklmnopqrstuvwxyz", 1); }},
    {"binary", [] { return random_text(kLength, "ab", 1); }},
    {"periodic", [] { return repeated(random_text(1000, "abcd", 1), kLength); }},
    {"Fibonacci", [] { return fibonacci_word(kLength); }},
    {"one letter", [] { return std::string(kLength, 'a'); }},
    {"last differs", [] { return std::string(kLength - 1, 'a') + "b"; }},
};

// ---- The textbook ----

std::vector<std::int32_t> failure(const std::string& w) {
  std::vector<std::int32_t> f(w.size() + 1);
  std::int32_t k = f[0] = -1;
  for (std::size_t i = 0; i < w.size(); ++i) {
    while (k >= 0 && w[i] != w[static_cast<std::size_t>(k)]) k = f[static_cast<std::size_t>(k)];
    f[i + 1] = ++k;
  }
  return f;
}

std::size_t border_length(const std::string& w) {
  return static_cast<std::size_t>(failure(w).back());
}

// J.-P. Duval, "Factorizing words over an ordered alphabet", 1983.
HostObject lyndon_factors(const std::string& w) {
  std::vector<std::size_t> ends{0};
  for (std::size_t k = 0; k < w.size();) {
    std::size_t i = k;
    std::size_t j = k + 1;
    for (; j < w.size() && w[i] <= w[j]; ++j) i = w[i] < w[j] ? k : i + 1;
    for (; k <= i; k += j - i) ends.push_back(k + j - i);
  }
  return list(ends.size() - 1,
              [&](std::size_t i) { return result(w.substr(ends[i], ends[i + 1] - ends[i])); });
}

// K. S. Booth, "Lexicographically least circular substrings", 1980, in the form with two places.
std::size_t least_rotation(const std::string& w) {
  const std::size_t n = w.size();
  std::size_t i = 0;
  std::size_t j = 1;
  for (std::size_t k = 0; i < n && j < n && k < n;) {
    const char a = w[(i + k) % n];
    const char b = w[(j + k) % n];
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

// Where v occurs in ww first, from `from` on, or npos.
std::size_t find_in_square(const std::string& v, const std::string& w, std::size_t from) {
  const std::string square = w + w;
  const void* const at = memmem(square.data() + from, square.size() - from, v.data(), v.size());
  return at == nullptr ? std::string::npos
                       : static_cast<std::size_t>(static_cast<const char*>(at) - square.data());
}

std::size_t root_length(const std::string& w) { return find_in_square(w, w, 1); }

bool is_rotation(const std::string& v, const std::string& w) {
  return v.size() == w.size() && find_in_square(v, w, 0) != std::string::npos;
}

HostObject passed(const std::string& w) {
  return result(std::memchr(w.data(), '\377', w.size()) != nullptr);
}

struct Other {
  const char* who = nullptr;
  HostObject (*ask)(const std::string& word) = nullptr;
};

// A job for each kind of word; `peers` are given the word, which lives until the next job.
void add(const char* row, VelmorCommand command, const std::vector<Other>& peers,
         Other yardstick = {}) {
  for (const Kind& kind : kKinds) {
    job("words/" + std::string(row) + " " + kind.name, [=] {
      static std::string word;
      word = kind.word();
      std::vector<Contestant> all{{"ours", call(command, {argument(word)})}};
      for (const Other& each : peers) all.push_back({each.who, [=] { return each.ask(word); }});
      if (yardstick.who != nullptr && std::string_view(kind.name) == "random") {
        all.push_back({yardstick.who, [=] { return yardstick.ask(word); }, Does::something});
      }
      return all;
    });
  }
}

const Jobs added([] {
  const Other memchr_pass{"memchr pass", passed};
  const Other copy{"copy for the host", [](const std::string& w) { return result(w); }};
  add("period", vstring_period,
      {{"textbook", [](const std::string& w) { return result(w.size() - border_length(w)); }}},
      memchr_pass);
  add("border", vstring_border,
      {{"textbook", [](const std::string& w) { return result(w.substr(0, border_length(w))); }}},
      memchr_pass);
  add("minconj", vstring_minconj,
      {{"textbook",
        [](const std::string& w) {
          std::string rotated = w;
          std::rotate_copy(w.begin(), w.begin() + static_cast<std::ptrdiff_t>(least_rotation(w)),
                           w.end(), rotated.begin());
          return result(rotated);
        }}},
      copy);
  add("lynfac", vstring_lynfac, {{"textbook", lyndon_factors}}, copy);
  add("primroot", vstring_primroot,
      {{"memmem in ww", [](const std::string& w) { return result(w.substr(0, root_length(w))); }}});
  add("isprim", vstring_isprim,
      {{"memmem in ww", [](const std::string& w) { return result(root_length(w) == w.size()); }}});
  for (const Kind& kind : kKinds) {
    job("words/conjp " + std::string(kind.name), [=] {
      static std::string v, w;
      v = w = kind.word();
      std::rotate(w.begin(), w.begin() + kLength / 3, w.end());
      return std::vector<Contestant>{{"ours", call(vstring_conjp, {argument(v), argument(w)})},
                                     {"memmem in ww", [] { return result(is_rotation(v, w)); }}};
    });
  }
});

}  // namespace
}  // namespace bench
