// One pattern, exactly: the first occurrence, all of them, and replacing them.
#include "harness/job.h"
#include "harness/texts.h"
#include "peers/finders.h"

namespace bench {
namespace {

using Text = const std::string& (*)();

// ---- The first occurrence: the pattern is absent, so that the whole text is passed ----

std::vector<Contestant> first(const std::string& pattern, const std::string& text) {
  std::vector<Contestant> all{{"ours", call(vstring_search, {argument(pattern), argument(text)})}};
  add_finders(all, pattern, [&](auto finder) {
    return [finder, &text] { return result(finder.next(text, 0) + 1); };  // npos + 1 is 0
  });
  return all;
}

void add_first(const char* kind, Text text, std::size_t m, std::string (*pattern)(std::size_t)) {
  job("first match/" + std::string(kind) + " m " + std::to_string(m),
      [=] { return first(pattern(m), text()); });
}

std::string prose_piece(std::size_t m) { return m == 1 ? "@" : absent_piece(prose(), m); }

// All words of eight letters occur; one with an unknown base does not.
std::string dna_piece(std::size_t m) {
  if (m > 8) return random_text(m, "ACGT", static_cast<unsigned>(m));
  std::string piece = dna().substr(1'000'000, m);
  piece[m / 2] = 'N';
  return piece;
}

// All pairs of bytes occur, but for those with the one byte that is left out.
std::string noise_piece(std::size_t m) {
  return m <= 2 ? std::string(m - 1, 'a') + '\377' : absent_piece(noise(), m);
}

// ---- All occurrences ----

std::vector<Contestant> all_matches(const std::string& pattern, const std::string& text) {
  std::vector<Contestant> all{{"ours", call(vstring_searchx, {argument(pattern), argument(text)})}};
  add_finders(all, pattern, [&](auto finder) {
    return [finder, &text] {
      std::vector<std::size_t> found;
      append_all(finder, text, found);
      return sequence(found.size(), [&](std::size_t i) { return result(found[i] + 1); });
    };
  });
  return all;
}

void add_all(const char* kind, Text text, const std::string& pattern) {
  job("all matches/" + std::string(kind) + " m " + std::to_string(pattern.size()),
      [=] { return all_matches(pattern, text()); });
}

// The same for a piece of the text itself.
void add_all_of_piece(const char* kind, Text text, std::size_t m) {
  job("all matches/" + std::string(kind) + " m " + std::to_string(m),
      [=] { return all_matches(text().substr(2'000'000, m), text()); });
}

// ---- Replacing all ----

template <typename Finder>
std::string replaced(const Finder& finder, const std::string& text, const std::string& by) {
  std::string made;
  made.reserve(text.size() + text.size() / 8);
  std::size_t from = 0;
  for (std::size_t at; (at = finder.next(text, from)) != kNowhere;) {
    made.append(text, from, at - from).append(by);
    from = at + finder.pattern_size();
  }
  return made.append(text, from, kNowhere);
}

template <typename Finder>
struct Sized : Finder {
  std::size_t size;
  std::size_t pattern_size() const { return size; }
};

void add_replace(const char* row, Text text, const std::string& pattern, const std::string& by) {
  job("replace/" + std::string(row), [=] {
    std::vector<Contestant> all{
        {"ours", call(vstring_substx, {argument(text()), argument(pattern), argument(by)})}};
    add_finders(all, pattern, [&](auto finder) {
      const Sized<decltype(finder)> sized{finder, pattern.size()};
      return [=] { return result(replaced(sized, text(), by)); };
    });
    return all;
  });
}

const Jobs added([] {
  for (const std::size_t m : {1U, 2U, 4U, 8U, 16U, 32U, 64U})
    add_first("prose", prose, m, prose_piece);
  for (const std::size_t m : {1U, 2U, 4U, 8U, 16U, 32U, 64U, 200U})
    add_first("DNA", dna, m, dna_piece);
  for (const std::size_t m : {1U, 2U, 4U, 8U, 16U, 32U, 64U}) {
    add_first("random bytes", noise, m, noise_piece);
  }

  constexpr std::size_t kLength = 4'000'000;
  const auto worst = [](const char* row, const std::string& pattern, std::string (*text)()) {
    job("worst cases/" + std::string(row), [=] {
      static std::string made;
      made = text();
      return first(pattern, made);
    });
  };
  const auto power = [] { return std::string(kLength, 'a'); };
  worst("a^63 b in a^n", std::string(63, 'a') + "b", power);
  worst("a^128 b a^127 in a^n", std::string(128, 'a') + "b" + std::string(127, 'a'), power);
  worst("b a^63 in a^n", "b" + std::string(63, 'a'), power);
  worst("b a^63 in (b a^62)^n", "b" + std::string(63, 'a'),
        [] { return repeated("b" + std::string(62, 'a'), kLength); });
  for (const std::size_t m : {8U, 64U, 256U}) {  // another last letter than the text wants
    std::string pattern = fibonacci_word(m);
    pattern.back() = pattern.back() == 'a' ? 'b' : 'a';
    if (fibonacci_word(kLength).find(pattern) == kNowhere) {
      worst(("Fibonacci m " + std::to_string(m)).c_str(), pattern,
            [] { return fibonacci_word(kLength); });
    }
  }

  add_all("prose", prose, "e");
  add_all("prose", prose, "th");
  add_all("prose", prose, "that");
  add_all("prose", prose, " and the");
  for (const std::size_t m : {16U, 32U, 64U}) add_all_of_piece("prose", prose, m);
  for (const std::size_t m : {1U, 2U, 4U, 8U, 16U, 32U, 64U}) add_all_of_piece("DNA", dna, m);
  job("all matches/a^32 in a^n", [] {
    static const std::string text(1'000'000, 'a');
    return all_matches(std::string(32, 'a'), text);
  });

  add_replace("the", prose, "the", "THE");
  add_replace("comma", prose, ",", ";");
  add_replace("LORD", prose, "LORD", "Lord");
  add_replace("LORD, longer", prose, "LORD", "Lord God");
  add_replace("GATC", dna, "GATC", "gatc");
  add_replace("absent", prose, "Zarathustra", "x");
});

}  // namespace
}  // namespace bench
