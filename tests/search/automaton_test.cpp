// The automaton against its textbook form.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "host/vstring.h"
#include "search/automaton_reference.h"
#include "support/allocations.h"
#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

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

void expect_textbook(const Words& patterns, const std::string& text, bool prepared = true) {
  const std::vector<Found> expected = Textbook(patterns, prepared).search(text);
  EXPECT_EQ(expected, Automaton(patterns, prepared).search(text))
      << testing::PrintToString(patterns).substr(0, 200);
}

TEST(Automaton, EverySmallPatternList) {
  const Words patterns = all_words("ab", 3);
  // The byte c returns to the root: in effect every text over {a, b} of up to 7 bytes.
  std::string texts;
  for (const std::string& text : all_words("ab", 7)) texts += text + "c";
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

// More states than have rows in the table, in long and in wide tries.
TEST(Automaton, RandomPatternsOfManyShapes) {
  auto random = [engine = std::mt19937(5)]() mutable { return static_cast<unsigned>(engine()); };
  struct Shape {
    std::size_t patterns, max_length;
    unsigned letters;
  };
  for (const auto& [n, max_length, letters] :
       {Shape{6000, 12, 3}, {3000, 40, 26}, {6000, 3, 255}}) {
    Words patterns;
    for (std::size_t i = 0; i < n; ++i) {
      patterns.push_back(random_word(1 + random() % max_length, letters, random()));
    }
    std::string text;
    while (text.size() < 20000) {
      text += patterns[random() % n];
      if (random() % 4 == 0) text += random_word(9, 255, random());
    }
    expect_textbook(patterns, text);
  }
}

// Patterns of at least three bytes let the scan skip over the text, by vectors for a few and in
// strides for more; in sparse texts and in dense ones, where it gives that up.
TEST(Automaton, SkippingMissesNothing) {
  auto random = [engine = std::mt19937(6)]() mutable { return static_cast<unsigned>(engine()); };
  for (int round = 0; round < 400; ++round) {
    const unsigned letters = 2 + random() % 25;
    const std::size_t shortest = 3 + random() % 6;
    Words patterns;
    for (std::size_t n = 1 + random() % (round % 2 == 0 ? 8 : 60); n > 0; --n) {
      patterns.push_back(random_word(shortest + random() % 4, letters, random()));
    }
    std::string text = random_word(random() % 12, letters, random());
    while (text.size() < 1500) {
      text += random_word(random() % 20, letters, random());
      const std::string& pattern = patterns[random() % patterns.size()];
      text += pattern.substr(random() % 3, random() % (pattern.size() + 1));
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
  EXPECT_EQ(automaton->root[+'x'], automaton->depth[1]);
  EXPECT_EQ(automaton, ac_init(automaton));  // releases the pool that the record holds
  EXPECT_EQ(nullptr, automaton->root[+'x']);
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

}  // namespace
}  // namespace vstring_test
