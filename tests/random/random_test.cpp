// The random generator, random strings and permutations, against a second calculation of the
// stream.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>

#include "support/allocations.h"
#include "support/check.h"

namespace vstring_test {
namespace {

// The stream, calculated with no more words than needed: outputs from the table and from the carry.
struct Stream {
  std::array<std::uint32_t, 128> table = {};
  std::uint32_t position = 0;
  std::uint32_t carry = 0;
  std::string pool;  // bytes not yet taken, most significant first

  void seed(std::uint32_t s) {
    const std::uint64_t m[] = {18273, 23163, 24984, 28854};
    std::uint64_t x[4];
    for (std::size_t i = 0; i < 4; ++i) {
      const std::uint32_t nibble = s >> 8 * i & 15;
      x[i] = (nibble != 0 ? nibble : std::array<std::uint32_t, 4>{1, 3, 5, 7}[i]) | 1;
    }
    carry = static_cast<std::uint32_t>(x[0] + x[1] + x[2] + x[3]);
    for (std::size_t k = 0; k < 127; ++k) {
      for (std::size_t i = 0; i < 4; ++i) x[i] = (x[i] / 65536 + x[i] % 65536 * m[i]) & 0xffffffff;
      table[k] =
          static_cast<std::uint32_t>((x[0] + x[2]) * 65536 + x[1] % 65536 + x[3] % 65536) | 1;
    }
  }

  std::uint32_t draw() {
    const std::uint32_t i = --position;
    table[i & 127] = table[(i + 33) & 127] * table[(i + 99) & 127];
    carry = carry / 65536 + carry % 65536 * 30903;
    return table[i & 127] + carry;
  }

  std::string bytes(std::size_t n) {
    std::string out;
    do {
      for (std::uint32_t r = draw(), k = 0; k < 4; ++k, r >>= 8) {
        if (r % 256 != 0) out += static_cast<char>(r % 256);
      }
    } while (out.size() < n);
    return out.substr(0, n);
  }

  unsigned char from_pool() {
    if (pool.empty()) {
      const std::uint32_t r = draw();
      for (int shift = 24; shift >= 0; shift -= 8) pool += static_cast<char>(r >> shift & 255);
    }
    const auto byte = static_cast<unsigned char>(pool[0]);
    pool.erase(0, 1);
    return byte;
  }

  std::string of(std::string_view members, std::size_t n) {
    std::string out;
    while (out.size() < n) {
      const unsigned char c = from_pool();
      if (c != 0 && c < 128 && members.find(static_cast<char>(c)) != members.npos) {
        out += static_cast<char>(c);
      }
    }
    return out;
  }

  std::string bits(std::size_t n) {
    std::string out;
    while (out.size() < n) {
      const unsigned byte = from_pool();
      for (int i = 0; i < 8; ++i) out += (byte >> i & 1) != 0 ? '1' : '0';
    }
    return out.substr(0, n);
  }

  std::string permutation(std::uint32_t n) {
    std::vector<std::uint32_t> p(n);
    std::iota(p.begin(), p.end(), 1);
    std::string out = "[";
    for (std::uint32_t i = 0; i < n; ++i) {
      std::swap(p[i], p[i + draw() % (n - i)]);
      out += (i == 0 ? "" : ", ") + std::to_string(p[i]);
    }
    return out + "]";
  }
};

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
    stream_.seed(0);
  }
  void TearDown() override { dlclose(library); }

  std::string evaluate(const std::string& call) { return session_->evaluate(call).text; }

  std::optional<velmor::Session> session_;
  Stream stream_;
};

const std::string kLower = "abcdefghijklmnopqrstuvwxyz";

TEST_F(FreshLibrary, UnseededStream) {
  const std::string outputs = stream_.bytes(256);  // 64 draws, none of them with a zero byte
  EXPECT_EQ("\377\320d8p!<v", outputs.substr(0, 8));
  EXPECT_EQ(quoted(outputs), evaluate("random(256)"));
  EXPECT_EQ(64u, 0u - stream_.position);
}

// All kinds of draws in turn: they share one stream, and class draws share a pool of bytes that
// reseeding leaves alone, as it does the place in the table and its last word.
TEST_F(FreshLibrary, EveryKindOfDraw) {
  for (const std::uint32_t seed : {0u, 1u, 17u, 0x0a0b0c0du, 0x80000000u, 0xffffffffu, 16u}) {
    if (seed != 0) {
      evaluate("randomise(" + std::to_string(static_cast<std::int32_t>(seed)) + ")");
      stream_.seed(seed);
    }
    for (const std::size_t n : {0U, 1U, 3U, 4U, 5U, 130U, 9000U}) {
      const std::string count = std::to_string(n);
      EXPECT_EQ(quoted(stream_.bytes(n)), evaluate("random(" + count + ")")) << seed;
      EXPECT_EQ(quoted(stream_.of(kLower, n)), evaluate("random(" + count + ", lower)"));
      EXPECT_EQ(quoted(stream_.of("xyz\n", n)), evaluate("random(" + count + ", \"xyz\\n\")"));
      EXPECT_EQ(quoted(stream_.of("xyz\n", n)), evaluate("random(" + count + ", last)"));
      EXPECT_EQ(quoted(stream_.bits(n)), evaluate("random(" + count + ", binary)"));
      EXPECT_EQ(quoted(stream_.bits(n)), evaluate("random(" + count + ", last)"));
      EXPECT_EQ(quoted(stream_.of("01", n)), evaluate("random(" + count + ", bits)"));
      EXPECT_EQ(quoted(stream_.of("01", n)), evaluate("random(" + count + ", last)"));
      EXPECT_EQ(stream_.permutation(static_cast<std::uint32_t>(n)),
                evaluate("randperm(" + count + ")"));
    }
  }
}

TEST_F(FreshLibrary, LastClass) {
  EXPECT_EQ(quoted(stream_.bytes(9)), evaluate("random(9, last)"));
  EXPECT_EQ(quoted(stream_.of("binary", 9)), evaluate("random(9, \"binary\")"));
  EXPECT_EQ(quoted(stream_.of("last", 9)), evaluate("random(9, \"last\")"));
  EXPECT_EQ(quoted(stream_.bytes(9)), evaluate("random(9)"));
  // What is refused draws nothing and leaves the last class, though a refused alphabet is the
  // filter's from then on.
  EXPECT_EQ("error: unrecognised character class `nonsense'", evaluate("random(9, nonsense)"));
  EXPECT_EQ(quoted(stream_.of("last", 9)), evaluate("random(9, last)"));
  EXPECT_EQ(quoted(stream_.of(kLower, 9)), evaluate("random(9, lower)"));
  EXPECT_EQ("error: unrecognised character class `\"\\200\"'", evaluate("random(9, \"\\200\")"));
  EXPECT_EQ("\"\"", evaluate("random(0, lower)"));
  EXPECT_EQ(quoted(stream_.of(kLower, 9)), evaluate("random(9, last)"));
  EXPECT_EQ("\"\"", evaluate("random(0, \"\\200\")"));
  EXPECT_EQ("error: unrecognised character class `last'", evaluate("random(1, last)"));
  EXPECT_EQ(quoted(stream_.bytes(9)), evaluate("random(9)"));
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
