// What calls on short texts cost, in instructions, the host's operations included: most calls of a
// session are such, and what is prepared for long texts should not be paid for by them.
#include <gtest/gtest.h>

#include "support/instructions.h"

namespace vstring_test {
namespace {

// Counts are those of one compiler at its highest level of optimisation.
#if defined(__GNUC__) && !defined(__clang__) && defined(NDEBUG)

// A bound is a tenth above what the call takes.
TEST(ShortCallsLongTier, TakeFewInstructions) {
  struct Row {
    const char* call;
    std::uint64_t bound;
  };
  const Row rows[] = {
      {R"(length("hello"))", 135},
      {R"(isprefix("he", "hello"))", 200},
      {R"(search("lo", "hello"))", 413},
      {R"(lowercase("Hello"))", 410},
      {R"(reverse("hello"))", 371},
      {R"(period("abcab"))", 250},
      {R"(levenshtein("kitten12", "sitting1"))", 724},
      {R"(regmatch("l+o", "hello"))", 896},
      {R"(wild("h*o", "hello"))", 468},
      {R"(take("hello", 2))", 468},
      {R"(compare("abc", "abd"))", 221},
      {R"(join(["a", "b", "c"], ","))", 741},
      {R"(split("a,b,c", ","))", 1510},
      {R"(substx("hello", "l", "L"))", 1106},
      {R"(hd("karolin", "kathrin"))", 282},
      {R"(soundex("Robert"))", 507},
      {R"(stem("running"))", 740},
      {R"(trim("  hello "))", 432},
      {R"(capitalise("hello world"))", 535},
      {R"(sort("hello"))", 489},
  };
  for (const Row& row : rows) {
    const std::uint64_t taken = call_instructions(row.call);
    EXPECT_GT(taken, 0U) << row.call;
    EXPECT_LE(taken, row.bound) << row.call;
  }
}

#endif

}  // namespace
}  // namespace vstring_test
