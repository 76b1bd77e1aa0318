// The automaton against its textbook form, in which every state's output chain is copied together
// from the chain of its failure state, entry by entry.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "host/vstring.h"
#include "support/allocations.h"
#include "support/check.h"

namespace vstring_test {
namespace {

struct Found {
  std::size_t position;
  int number;
  bool operator==(const Found&) const = default;
  friend void PrintTo(const Found& found, std::ostream* out) {
    *out << '[' << found.position << ", " << found.number << ']';
  }
};
using Words = std::vector<std::string>;

class Textbook {
 public:
  explicit Textbook(const Words& patterns, bool prepared = true) : states_(1), levels_(1) {
    for (std::size_t i = 0; i < patterns.size(); ++i) insert(patterns[i], static_cast<int>(i + 1));
    if (prepared) prepare();
  }

  std::vector<Found> search(const std::string& text) const {
    std::vector<Found> found;
    std::size_t s = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      s = follow(s, text[i]);
      for (const auto& [length, number] : states_[s].outputs) {
        found.push_back({i + 1 - length, number});
      }
    }
    return found;
  }

 private:
  struct Node {
    std::map<char, std::size_t> edges;
    std::size_t fail = 0;
    std::vector<std::pair<std::size_t, int>> outputs;  // length and number
  };

  void insert(const std::string& pattern, int number) {
    std::size_t s = 0;
    for (std::size_t depth = 1; depth <= pattern.size(); ++depth) {
      const auto [edge, is_new] = states_[s].edges.try_emplace(pattern[depth - 1], states_.size());
      s = edge->second;
      if (!is_new) continue;
      states_.emplace_back();
      if (levels_.size() <= depth) levels_.emplace_back();
      levels_[depth].push_back(s);
    }
    if (s != 0 && states_[s].outputs.empty()) states_[s].outputs = {{pattern.size(), number}};
  }

  std::size_t follow(std::size_t s, char c) const {
    while (s != 0 && !states_[s].edges.contains(c)) s = states_[s].fail;
    const auto edge = states_[s].edges.find(c);
    return edge == states_[s].edges.end() ? 0 : edge->second;
  }

  void prepare() {
    for (const auto& level : levels_) {
      for (const std::size_t s : level) {
        for (const auto& [c, child] : states_[s].edges) {
          states_[child].fail = follow(states_[s].fail, c);
          for (const auto& output : states_[states_[child].fail].outputs) {
            states_[child].outputs.insert(states_[child].outputs.begin(), output);
          }
        }
      }
    }
  }

  std::vector<Node> states_;
  std::vector<std::vector<std::size_t>> levels_;
};

// The library's automaton, through its C interface.
class Automaton {
 public:
  explicit Automaton(const Words& patterns, bool prepared = true) {
    EXPECT_EQ(&automaton_, ac_init(&automaton_));
    int number = 0;
    for (const std::string& pattern : patterns) {
      EXPECT_EQ(1, ac_insert(&automaton_, pattern.c_str(), ++number));
    }
    if (prepared) {
      EXPECT_EQ(1, ac_prep(&automaton_));
    }
  }
  ~Automaton() { ac_free(&automaton_); }
  Automaton(const Automaton&) = delete;
  Automaton& operator=(const Automaton&) = delete;
  VstringAutomaton* get() { return &automaton_; }

  // Stops after `limit` matches.
  std::vector<Found> search(const std::string& text, std::size_t limit = SIZE_MAX) {
    Collector collector{text.c_str(), limit, {}};
    const auto calls = ac_search(&automaton_, text.c_str(), Collector::add, &collector);
    EXPECT_EQ(static_cast<std::int64_t>(collector.found.size()), calls);
    return collector.found;
  }

 private:
  struct Collector {
    const char* text;
    std::size_t limit;
    std::vector<Found> found;

    static int add(void* self, const char* pattern, const char* at, std::int32_t number) {
      auto* const collector = static_cast<Collector*>(self);
      EXPECT_EQ(0, std::string_view(at).rfind(pattern, 0)) << pattern << " is not there";
      collector->found.push_back({static_cast<std::size_t>(at - collector->text), number});
      return collector->found.size() < collector->limit ? 1 : 0;
    }
  };

  VstringAutomaton automaton_ = {};
};

Words words_over(const std::string& alphabet, std::size_t max_length) {
  Words words = {""};
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i].size() == max_length) break;
    for (const char c : alphabet) words.push_back(words[i] + c);
  }
  return words;
}

void expect_textbook(const Words& patterns, const std::string& text, bool prepared = true) {
  const std::vector<Found> expected = Textbook(patterns, prepared).search(text);
  EXPECT_EQ(expected, Automaton(patterns, prepared).search(text))
      << testing::PrintToString(patterns).substr(0, 200);
}

TEST(Automaton, EverySmallPatternList) {
  const Words patterns = words_over("ab", 3);
  // The byte c returns to the root: in effect every text over {a, b} of up to 7 bytes.
  std::string texts;
  for (const std::string& text : words_over("ab", 7)) texts += text + "c";
  for (const std::string& p : patterns) {
    for (const std::string& q : patterns) {
      expect_textbook({p, q}, texts);
      expect_textbook({p, q}, texts, false);
      for (const std::string& r : patterns) expect_textbook({p, q, r}, texts);
    }
  }
}

TEST(Automaton, LongChainsKeepTheirOrder) {
  Words powers, some;
  for (std::size_t n = 1; n <= 1100; ++n) {
    if (n <= 600) powers.push_back(std::string(n, 'a'));
    if (n % 3 != 1 && n % 7 != 2) some.push_back(std::string(n, 'a'));
  }
  expect_textbook(powers, std::string(700, 'a'));
  expect_textbook(some, std::string(1100, 'a') + "ba");
}

std::string random_word(std::mt19937& engine, std::size_t length, unsigned letters, char first) {
  std::string word(length, ' ');
  for (char& c : word) c = static_cast<char>(first + static_cast<int>(engine() % letters));
  return word;
}

// More states than have rows in the table, in long and in wide tries.
TEST(Automaton, RandomPatternsOfManyShapes) {
  std::mt19937 engine(5);
  struct Shape {
    std::size_t patterns, max_length;
    unsigned letters;
    char first;
  };
  for (const auto& [n, max_length, letters, first] :
       {Shape{6000, 12, 3, 'a'}, Shape{3000, 40, 26, 'a'}, Shape{6000, 3, 255, 1}}) {
    Words patterns;
    for (std::size_t i = 0; i < n; ++i) {
      patterns.push_back(random_word(engine, 1 + engine() % max_length, letters, first));
    }
    std::string text;
    while (text.size() < 20000) {
      text += patterns[engine() % n];
      if (engine() % 4 == 0) text += random_word(engine, 9, 255, 1);
    }
    expect_textbook(patterns, text);
  }
}

// Patterns of at least three bytes let the scan skip over the text; in sparse ones and in dense
// ones, where it gives that up.
TEST(Automaton, SkippingMissesNothing) {
  std::mt19937 engine(6);
  for (int round = 0; round < 400; ++round) {
    const auto letters = static_cast<unsigned>(2 + engine() % 25);
    const std::size_t shortest = 3 + engine() % 6;
    Words patterns;
    for (std::size_t n = 1 + engine() % 8; n > 0; --n) {
      patterns.push_back(random_word(engine, shortest + engine() % 4, letters, 'a'));
    }
    std::string text = random_word(engine, engine() % 12, letters, 'a');
    while (text.size() < 1500) {
      text += random_word(engine, engine() % 20, letters, 'a');
      const std::string& pattern = patterns[engine() % patterns.size()];
      text += pattern.substr(engine() % 3, engine() % (pattern.size() + 1));
    }
    expect_textbook(patterns, text);
  }
}

TEST(Automaton, StopsWhenToldAndGoesOnAfterInsertions) {
  Automaton automaton({"ab", "b", "", "ab"});
  EXPECT_EQ((std::vector<Found>{{1, 2}, {0, 1}, {3, 2}}), automaton.search("abxb"));
  EXPECT_EQ((std::vector<Found>{{1, 2}, {0, 1}}), automaton.search("abxb", 2));
  EXPECT_EQ(1, ac_insert(automaton.get(), "xb", 9));
  EXPECT_EQ((std::vector<Found>{{1, 2}, {0, 1}, {2, 9}}), automaton.search("abxb"));
  EXPECT_EQ(1, ac_prep(automaton.get()));
  EXPECT_EQ((std::vector<Found>{{1, 2}, {0, 1}, {3, 2}, {2, 9}}), automaton.search("abxb"));
}

TEST(Automaton, Records) {
  const std::size_t live = live_blocks();
  VstringAutomaton* const automaton = ac_alloc();
  ASSERT_NE(nullptr, automaton);
  EXPECT_EQ(10, automaton->capacity);
  EXPECT_EQ(1, ac_insert(automaton, std::string(10, 'x').c_str(), 1));
  EXPECT_EQ(20, automaton->capacity);
  EXPECT_NE(nullptr, automaton->depth[10]);
  EXPECT_EQ(automaton->root['x'], automaton->depth[1]);
  EXPECT_EQ(automaton, ac_init(automaton));  // releases the pool that the record holds
  EXPECT_EQ(nullptr, automaton->root['x']);
  for (int times = 0; times < 2; ++times) {
    ac_free(automaton);
    EXPECT_EQ(-1, automaton->capacity);
    EXPECT_EQ(nullptr, automaton->depth);
    EXPECT_EQ(nullptr, automaton->pool);
  }
  EXPECT_EQ(0, ac_insert(automaton, "x", 1));
  EXPECT_EQ(0, ac_prep(automaton));
  const auto fail = [](void*, const char*, const char*, std::int32_t) { return 1; };
  EXPECT_EQ(0, ac_search(automaton, "xx", fail, nullptr));
  std::free(automaton);
  ac_free(nullptr);
  EXPECT_EQ(live, live_blocks());
}

TEST(Automaton, EachAllocationFailing) {
  const std::size_t live = live_blocks();
  const std::string deep(700, 'x');
  bool failed = true;
  for (std::size_t k = 1; failed; ++k) {
    VstringAutomaton automaton = {};
    fail_allocation(k);
    const bool made = ac_init(&automaton) != nullptr && ac_insert(&automaton, "ab", 1) == 1 &&
                      ac_insert(&automaton, deep.c_str(), 2) == 1 && ac_prep(&automaton) == 1;
    failed = allocation_failed();
    fail_allocation(0);
    EXPECT_EQ(made, !failed) << "allocation " << k;
    ac_free(&automaton);
    EXPECT_EQ(live, live_blocks()) << "allocation " << k;
    ASSERT_LT(k, 100u);
  }
}

}  // namespace
}  // namespace vstring_test
