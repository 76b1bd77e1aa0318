// The random generator, random strings and permutations: the stream is part of the interface, so
// its values are pinned. A slower calculation by the generator's definition gave the same.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "support/allocations.h"
#include "support/check.h"
#include "support/fingerprint.h"

namespace vstring_test {
namespace {

// The library as it is when a host has just loaded it.
void* library = nullptr;

VelmorCommand resolve(const std::string& entry_point) {
  return reinterpret_cast<VelmorCommand>(dlsym(library, entry_point.c_str()));
}

class FreshLibrary : public testing::Test {
 protected:
  void SetUp() override {
    library = dlopen(VSTRING_LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(nullptr, library) << dlerror();
    session_.emplace(resolve);
    session_->symbolic = true;
  }
  void TearDown() override { dlclose(library); }

  std::string evaluate(const std::string& call) { return session_->evaluate(call).text; }

  std::optional<velmor::Session> session_;
};

TEST_F(FreshLibrary, UnseededStream) {
  EXPECT_EQ(R"("\377\320d8p!<v")", evaluate("take(random(256), 8)"));
}

// The alphabet of filters as it is at first.
TEST_F(FreshLibrary, FilterAlphabet) {
  const auto filter = reinterpret_cast<CharTest>(dlsym(library, "AlphabetFilter"));
  for (int code = 0; code < 256; ++code)
    EXPECT_EQ(code == 0 || (code >= 'a' && code <= 'z'), filter(code) != 0) << code;
}

// All kinds of draws in turn: they share one stream, and class draws share a pool of bytes that
// reseeding leaves alone, as it does the place in the table and its last word.
TEST_F(FreshLibrary, EveryKindOfDraw) {
  const std::pair<const char*, std::uint64_t> seeds[] = {
      {"NULL", 1175152023514610060U},
      {"randomise(1)", 12129296485956780025U},
      {"randomise(17)", 6994259612268424664U},
      {"randomise(168496141)", 5843858573230956998U},
      {"randomise(-2147483648)", 10160725459568346219U},
      {"randomise(-1)", 1825188849337437709U},
      {"randomise(16)", 5195825088814571843U},
  };
  for (const auto& [seed, expected] : seeds) {
    evaluate(seed);
    std::string draws;
    for (const char* const n : {"0", "1", "3", "4", "5", "130", "9000"}) {
      evaluate(std::string("n := ") + n);
      for (const char* const draw : {"random(n)", "random(n, lower)", "random(n, \"xyz\\n\")",
                                     "random(n, last)", "random(n, binary)", "random(n, last)",
                                     "random(n, bits)", "random(n, last)", "randperm(n)"}) {
        draws += evaluate(draw);
      }
    }
    EXPECT_EQ(expected, fingerprint(draws)) << seed;
  }
}

TEST_F(FreshLibrary, LastClass) {
  EXPECT_EQ(R"("\377\320d8p!<v\204")", evaluate("random(9, last)"));
  const auto drawn_from = [&](const std::string& call, const std::string& members) {
    return evaluate("regmatch(\"^[" + members + "]*$\", " + call + ")") == "true";
  };
  const std::string kLower = "abcdefghijklmnopqrstuvwxyz";
  EXPECT_TRUE(drawn_from("random(100, \"binary\")", "binary"));
  EXPECT_TRUE(drawn_from("random(100, \"last\")", "last"));
  EXPECT_FALSE(drawn_from("random(100)", kLower));
  // What is refused draws nothing and leaves the last class, though a refused alphabet is the
  // filter's from then on.
  EXPECT_EQ("error: unrecognised character class `nonsense'", evaluate("random(9, nonsense)"));
  EXPECT_TRUE(drawn_from("random(100, last)", "last"));
  EXPECT_TRUE(drawn_from("random(100, lower)", kLower));
  EXPECT_EQ("error: unrecognised character class `\"\\200\"'", evaluate("random(9, \"\\200\")"));
  EXPECT_EQ("\"\"", evaluate("random(0, lower)"));
  EXPECT_TRUE(drawn_from("random(100, last)", kLower));
  EXPECT_EQ("\"\"", evaluate("random(0, \"\\200\")"));
  EXPECT_EQ("error: unrecognised character class `last'", evaluate("random(1, last)"));
  EXPECT_EQ("0", evaluate("length(random(0))"));
}

TEST(Random, RefusalsAndEdges) {
  Check({
      {"random(-7, 1)", "error: first argument must be a non-negative integer, but received -7"},
      {"random(3, 7)", "error: unrecognised character class `7'"},
      {"random(3, \"\")", "error: character class must be nonempty"},
      {R"(random(0), length(random(9000, digit)), random(4, "a"))", R"("", 9000, "aaaa")"},
      {"randperm(-1)", "error: first argument must be non-negative"},
      {"randperm(0), randperm(1)", "[], [1]"},
      {"randomise(0)", "error: bad seed"},
      {"[randomise(-1)], [randomise()]", "[], []"},
  });
}

TEST(Random, PermutationWithoutMemoryIsNoValue) {
  fail_allocation(1);
  EXPECT_EQ("", evaluate("randperm(513)"));
  EXPECT_TRUE(allocation_failed());
  fail_allocation(0);
}

}  // namespace
}  // namespace vstring_test
