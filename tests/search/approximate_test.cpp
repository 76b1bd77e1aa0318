// Approximate search: the end positions that each selector reports.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "search/approximate_reference.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

TEST(Approximate, Values) {
  Check({
      {"asearch(\"bc\", `abcd`, 0), asearchx(\"bc\", \"abcdbc\", 0)", "3, 3, 6"},
      {"asearchx(\"abc\", \"xyzw\", 2147483647), asearch(\"abc\", \"\", 9)", "1, 2, 3, 4, 0"},
      {"asearch(\"a\", \"a\", -1), asearchxb(\"\", \"ab\", -2147483648, 3)", "0, []"},
      {"asearchb(\"\\377\\200\", \"a\\377b\\200\", 1, 2, surplus)", "2"},
  });
}

TEST(Approximate, Refusals) {
  Check({
      {"asearchxb(\"a\", \"b\", 1)", "error: expecting 4 arguments, but got 3"},
      {"asearchb(\"a\", \"b\", 2147483648, x)", "error: third argument must be a 32-bit integer"},
  });
}

void check_ends(const std::string& pattern, const std::string& text, std::int64_t k) {
  const auto check = [&](VelmorCommand first, VelmorCommand every, const Values& more,
                         const Ends& expected) {
    const auto answer = [&](VelmorCommand command) {
      Values arguments = {pattern, text};
      arguments.insert(arguments.end(), more.begin(), more.end());
      return call(command, arguments);
    };
    const std::string where = pattern + " in " + text + ", " + std::to_string(k);
    ASSERT_EQ(printed_sequence(expected), answer(every)) << where;
    ASSERT_EQ(printed(expected.empty() ? 0 : expected[0]), answer(first)) << where;
  };
  const Ends by_table = ends_by_table(pattern, text, k);
  const Ends by_automaton = ends_by_automaton(pattern, text, k);
  check(vstring_asearchb, vstring_asearchxb, {k, 1}, by_automaton);
  check(vstring_asearchb, vstring_asearchxb, {k, 2}, by_table);
  check(vstring_asearchb, vstring_asearchxb, {k, 3}, by_table);
  check(vstring_asearch, vstring_asearchx, {k}, pattern.size() <= 64 ? by_automaton : by_table);
}

TEST(Approximate, EveryShortPatternInEveryShortText) {
  for (const std::string& text : all_words("ab", 8)) {
    for (const std::string& pattern : all_words("ab", 4)) {
      for (std::int64_t k = 0; k <= 2; ++k) check_ends(pattern, text, k);
    }
  }
}

// Copies of the pattern, whole or in part, with edits and rubbish between them.
TEST(Approximate, LongPatterns) {
  std::mt19937 random(4);
  const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  const auto letter = [&] { return static_cast<char>('a' + below(3)); };
  for (const std::size_t m :
       {1U, 2U, 7U, 31U, 32U, 33U, 34U, 63U, 64U, 65U, 96U, 97U, 128U, 129U, 200U}) {
    for (int round = 0; round < 40; ++round) {
      std::string pattern(m, 'a');
      for (char& c : pattern) c = letter();
      const std::size_t k = round % 4 == 0 ? below(m + 2) : below(9);
      std::string text;
      const bool is_sparse = round % 20 == 1;  // now and then a long text of other letters
      while (text.size() < (is_sparse ? 20000 : 2 * m + 20)) {
        for (std::size_t i = is_sparse ? below(600) : 0; i > 0; --i) {
          text += static_cast<char>('c' + below(20));
        }
        std::string piece = pattern.substr(below(m));
        for (std::size_t edits = below(k + 2); edits > 0 && !piece.empty(); --edits) {
          const std::size_t at = below(piece.size());
          piece.replace(at, below(2), std::string(below(2), letter()));
        }
        text += piece + letter();
      }
      check_ends(pattern, text, static_cast<std::int64_t>(k));
    }
  }
}

// Behind its byte 32 the automaton only knows that byte.
TEST(Approximate, WidenedMasks) {
  const std::string pattern = std::string(31, 'a') + "b" + std::string(8, 'c');
  Check({{"asearch(" + quoted(pattern) + ", " + quoted(pattern) + ", 0)", "0"},
         {"asearchb(" + quoted(pattern) + ", " + quoted(pattern) + ", 0, 2)", "40"},
         {"asearch(" + quoted(pattern) + ", " + quoted(std::string(31, 'a') + "bbbbbbbbb") + ", 0)",
          "40"}});
}

// The whole table would take 13 GB.
TEST(Approximate, TableOfAnySize) {
  CheckInOrder({{"asearchb(repeat(\"ab\", 20000), repeat(\"b\", 39999), 20001, 3)", "19999"},
                {"asearchb(repeat(\"ab\", 20000), repeat(\"b\", 39999), 3, 2)", "0"}});
}

}  // namespace
}  // namespace vstring_test
