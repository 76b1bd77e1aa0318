// Exact search and search with mismatches: one pattern, lists of texts, match lists.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "search/approximate_reference.h"
#include "support/check.h"
#include "support/direct.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

constexpr const char* kNoAutomaton = "error: cannot preprocess pattern list";

TEST(Exact, Values) {
  Check({
      {R"(search("b\351", `ab\351c`), search(`b`, ""))", "2, 0"},
      {R"(search("b", ["ab", `b`, "", "aa"]))", "[2, 1, 0, 0]"},
      {R"(search("b", []), searchx("b", {}), search("b", {"ab"}))", "[], [], [2]"},
      {R"(searchx("aa", ["aaa", "ab", ""]), search("", ["a", ""]), searchx("", ["a", ""]))",
       "[[1, 2], [], []], [0, 0], [[], []]"},
      {"search([\"nan\", `an`], \"banana\"), search({\"x\"}, `banana`)", "[2, 2], [0, 0]",
       kNoAutomaton},
      {"search([], \"a\"), searchx([], \"a\"), searchx([\"x\"], \"a\")", "0, [], []", kNoAutomaton},
      {"search([\"ab\", repeat(\"x\", 700)], \"aab\")", "[2, 1]", kNoAutomaton},
      {"searchx([\"ab\", \"b\"], \"abb\")", "[2, 2], [1, 1], [3, 2]", kNoAutomaton},
      {R"(search("a", "ba", surplus))", "2"},
  });
}

TEST(Exact, Refusals) {
  CheckRefusals({
      {"first argument must be a string", R"(search(1, ["a"]); searchx(1, ["a"]))"},
      {"second argument must be a string", "search([1], 2); searchx([1], 2)"},
      {"first argument must be a list of strings", R"(search(["a", 1], "a"); searchx({1}, "a"))"},
      {"at most one argument can be a list of strings", "search([1], {2}); searchx([1], {2})"},
      {"second argument must be a list of strings", R"(search("a", ["a", 1]); searchx("a", {1}))"},
      {"third argument must be non-negative",
       R"(hsearch("a", "b", -1); hsearchx("a", "b", -1); psearch("a", "b", -1); psearchx("a", "b", -1))"},
  });
}

TEST(Exact, Mismatches) {
  Check({
      {R"(hsearch("", "", 1), hsearchx("", "ab", 1))", "1, [1, 0], [2, 0], [3, 0]"},
      {R"(hsearch("abc", "ab", 9), hsearchx("abc", "ab", 9), hsearchx("abc", "xyzw", 2147483647))",
       "0, [], [1, 3], [2, 3]"},
      {R"(hsearchx("\200bcdefghi\377", "\200bcdefghi\177bcdefghi\377", 1))", "[1, 1], [10, 1]"},
  });
}

// First and all occurrences, in one text and in a list of texts.
void check_exact(const std::string& pattern, const std::string& text) {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i + pattern.size() <= text.size() && !pattern.empty(); ++i) {
    if (text.compare(i, pattern.size(), pattern) == 0) found.push_back(i + 1);
  }
  const std::string first = printed(found.empty() ? 0 : found[0]);
  const std::string all = printed_sequence(found);
  const std::string where = pattern + " in " + text;
  ASSERT_EQ(first, call(vstring_search, {pattern, text})) << where;
  ASSERT_EQ(all, call(vstring_searchx, {pattern, text})) << where;
  ASSERT_EQ("[" + first + "]", call(vstring_search, {pattern, list({text})})) << where;
  ASSERT_EQ("[" + printed(found) + "]", call(vstring_searchx, {pattern, list({text})})) << where;
}

void check_mismatches(const std::string& pattern, const std::string& text, std::size_t k) {
  const auto found = places_with_mismatches(pattern, text, k);
  const auto answer = [&](VelmorCommand command) {
    return call(command, {pattern, text, static_cast<std::int64_t>(k)});
  };
  const std::string where = pattern + " in " + text;
  ASSERT_EQ(printed(found.empty() ? 0 : found[0][0]), answer(vstring_hsearch)) << where;
  ASSERT_EQ(printed_sequence(found), answer(vstring_psearchx)) << where;
}

TEST(Exact, EveryShortPatternInEveryShortText) {
  for (const std::string& text : all_words("ab", 8)) {
    for (const std::string& pattern : all_words("ab", 4)) {
      check_exact(pattern, text);
      for (std::size_t k = 0; k <= 2; ++k) check_mismatches(pattern, text, k);
    }
  }
}

// Long texts with structure make the search leave its first method for the second.
TEST(Exact, FactorsOfLongTexts) {
  for (const std::string& text : sample_words(3000)) {
    for (const std::size_t m : {1U, 2U, 3U, 5U, 8U, 31U, 32U, 33U, 63U, 64U, 65U, 200U}) {
      std::string factor = text.substr(text.size() / 2, m);
      check_exact(factor, text);
      factor[m / 2] = 'b';
      check_exact(factor, text);
      // So short that the texts of a list share what is prepared.
      check_exact(factor, text.substr(text.size() / 3, 900));
      check_mismatches(factor, text, 3);
    }
  }
}

// The count of one pattern in one text is kept in 16 bits; no other form has that limit.
TEST(Exact, CountsInSixteenBits) {
  for (const std::size_t n : {65535U, 65536U, 65537U, 131072U}) {
    const std::string text = "repeat(\"a\", " + std::to_string(n) + ")";
    const auto count = [&](const std::string& before, const std::string& after) {
      return velmor_size(session().evaluate("[" + before + text + after + ")]").value);
    };
    if (n % 65536 == 0) {
      EXPECT_EQ("[]", evaluate("searchx(\"a\", " + text + ")"));
    } else {
      EXPECT_EQ(n, count("searchx(\"a\", ", ""));
    }
    EXPECT_EQ(n, count("searchx([\"a\", \"b\"], ", ""));
    EXPECT_EQ(n, count("hsearchx(\"a\", ", ", 0"));
    EXPECT_EQ(n, count("asearchx(\"a\", ", ", 0"));
    const HostObject lists = session().evaluate("searchx(\"a\", [" + text + "])").value;
    EXPECT_EQ(n, velmor_size(velmor_element(lists, 1)));
  }
}

TEST(MatchList, CollectsAndConverts) {
  const HostTable* const host = velmor_table(session().heap());
  const auto printed = [](HostObject object) { return session().print(object); };
  EXPECT_EQ(nullptr, AddMatchToList(nullptr, 1, 2));
  EXPECT_EQ("[]", printed(MatchListToExpSeq(host, nullptr)));
  FreeMatchList(nullptr);

  VstringMatchList* const list = MatchListCreate();
  EXPECT_EQ("[]", printed(MatchListToList(host, list)));
  EXPECT_EQ("[]", printed(MatchListToExpSeq2(host, list)));
  for (const int32_t i : {4, 2, INT32_MAX}) EXPECT_EQ(list, AddMatchToList(list, i, -i));
  EXPECT_EQ(3, list->count);
  EXPECT_EQ("5, 3, 2147483648", printed(MatchListToExpSeq(host, list)));
  EXPECT_EQ("[5, 3, 2147483648]", printed(MatchListToList(host, list)));
  EXPECT_EQ("[5, -4], [3, -2], [2147483648, -2147483647]", printed(MatchListToExpSeq2(host, list)));
  // A node in the scratch buffer is not the list's to free.
  auto* const node = reinterpret_cast<VstringMatch*>(smbuf);
  *node = {list->head, 0, 0};
  list->head = node;
  FreeMatchList(list);
  EXPECT_EQ(nullptr, list->head);
  EXPECT_EQ(0, list->count);
  std::free(list);
}

TEST(Exact, PlainRoutine) {
  EXPECT_EQ(3, Search("cd", 1, "abcd", 4));
  EXPECT_EQ(0, Search("cd", 2, "abcd", 3));
  EXPECT_EQ(0, Search("", 0, "abcd", 4));
  EXPECT_EQ(0, Search("abc", 3, "ab", 2));
}

}  // namespace
}  // namespace vstring_test
