// Dictionaries: the builtin one, and those made from lists.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "support/allocations.h"
#include "support/check.h"

namespace vstring_test {
namespace {

void collect_info(void* context, std::int64_t level, const char* package, const char* text) {
  *static_cast<std::string*>(context) = std::to_string(level) + " " + package + ": " + text;
}

class Dictionary : public testing::Test {
 protected:
  void SetUp() override {
    velmor_set_userinfo(heap(), collect_info, &info_);
    free_all();
  }
  void TearDown() override {
    free_all();
    velmor_set_userinfo(heap(), nullptr, nullptr);
  }
  static void free_all() {
    for (int id = 0; id < 512; ++id) evaluate("dictObjFree(" + std::to_string(id) + ")");
  }
  static VelmorHeap* heap() { return session().heap(); }

  std::string info_;
};

TEST_F(Dictionary, Values) {
  CheckInOrder({
      {"dictCreate([\"he\", \"she\", \"his\", \"hers\"])", "1"},
      {"dictObjSearch(1, `ushers`)", "[3, 1], [2, 2], [3, 4]"},
      {R"(dictObjSearch(1, "HE"), dictObjSearch(1, ""))", "[], []"},
      {"dictCreate([c, bc, abcd, c, \"\"])", "2"},
      {"dictObjSearch(2, \"abcd\")", "[2, 2], [3, 1], [1, 3]"},
      {"dictObjSize(2), dictObjGet(2, 0)", "5, \"\""},
      {"dictObjGet(2, 2), dictObjGet(2, 4), dictObjGet(2, 5)", "\"bc\", \"c\", \"\""},
      {"dictCreate([]), dictObjSearch(3, \"abc\"), dictObjSize(3)", "3, [], 0"},
      {R"(dictObjFree(1), dictCreate(["x"]))", "1, 1"},
  });
}

TEST_F(Dictionary, Refusals) {
  CheckRefusals({
      {"expecting one argument, but got 0", "dictCreate(); dictObjSize(); dictObjFree()"},
      {"expecting 2 arguments, but got 1", "dictObjGet(0); dictObjSearch(0)"},
      {"argument must be a list of strings, or the special name `builtin'",
       R"(dictCreate("builtin"); dictCreate({"a"}); dictCreate(builti))"},
      {"argument must be a 32-bit integer",
       R"(dictObjSize("0"); dictObjGet(x, y); dictObjGet(0, 2147483648); dictObjFree(1.5))"},
      {"invalid dictionary ID",
       "dictObjSize(1); dictObjSize(-1); dictObjSize(512); dictObjSearch(600, 1)"},
  });
  CheckInOrder({
      {"dictCreate([\"a\", 1])", "error: first argument must be a list of strings"},
      {"dictObjGet(1, -5)", "\"\""},
      {"dictObjGet(512, 1)", "\"\""},
      {"dictObjGet(0, 25951)", "error: invalid word ID for dictionary"},
      {"dictObjGet(0, -1)", "error: invalid word ID for dictionary"},
      {"dictObjSearch(\"a\", 1)", "error: first argument must be a 32-bit integer"},
      {"dictObjSearch(0, 1)", "error: invalid dictionary ID"},
      {"dictCreate([\"a\"])", "1"},
      {"dictObjSearch(1, 1)", "error: second argument must be a string"},
      {"dictObjGet(1, 2)", "error: invalid word ID for dictionary"},
      {"dictObjGet(1, -1)", "error: invalid word ID for dictionary"},
  });
}

TEST_F(Dictionary, FreeingTellsFirst) {
  const auto free_and_tell = [&](const char* call) {
    info_.clear();
    const std::string answer = evaluate(call);
    return answer + " / " + info_;
  };
  const char* const builtin = "10 PatternDictionary: freeing builtin dictionary search automaton";
  EXPECT_EQ(std::string("0 / ") + builtin, free_and_tell("dictObjFree(0)"));
  EXPECT_EQ("0", evaluate("dictCreate(builtinEnglish)"));
  EXPECT_EQ(std::string("1 / ") + builtin, free_and_tell("dictObjFree(0)"));
  EXPECT_EQ("error: invalid dictionary ID / 10 PatternDictionary: freeing dictionary ID #511",
            free_and_tell("dictObjFree(511)"));
  EXPECT_EQ("error: invalid dictionary ID / ", free_and_tell("dictObjFree(512)"));
  EXPECT_EQ("error: invalid dictionary ID / ", free_and_tell("dictObjFree(-1)"));
}

TEST_F(Dictionary, BuiltinWords) {
  evaluate("dictObjSize(0)");
  std::vector<std::string> words;
  for (int k = 1; k <= 25950; ++k) {
    const std::string call = "dictObjGet(0, " + std::to_string(k) + ")";
    words.push_back(velmor_text(session().evaluate(call).value));
  }
  const auto lower = [](std::string word) {
    for (char& c : word) c = static_cast<char>(std::tolower(c));
    return word;
  };
  const auto before = [&](const std::string& v, const std::string& w) {
    return std::pair(lower(v), v) < std::pair(lower(w), w);
  };
  EXPECT_EQ(words.end(), std::adjacent_find(words.begin(), words.end(), std::not_fn(before)));
  const auto with = [&](auto test) {
    return std::ranges::count_if(
        words, [&](const std::string& word) { return std::ranges::any_of(word, test); });
  };
  EXPECT_EQ(5487, with([](char c) { return c >= 'A' && c <= 'Z'; }));
  EXPECT_EQ(153, with([](char c) { return (c | 32) < 'a' || (c | 32) > 'z'; }));
  // Every word is found in itself, under its number.
  EXPECT_EQ("0, 0", evaluate("dictCreate(builtin), dictCreate(builtin)"));
  for (std::size_t k = 0; k < words.size(); k += long_tier() ? 1 : 37) {
    const std::string found = evaluate("dictObjSearch(0, \"" + words[k] + "\")");
    EXPECT_NE(std::string::npos, found.find("[1, " + std::to_string(k + 1) + "]")) << words[k];
  }
}

TEST_F(Dictionary, AsManyAsThereAreNumbers) {
  for (int id = 1; id <= 511; ++id) {
    ASSERT_EQ(std::to_string(id), evaluate("dictCreate([\"w" + std::to_string(id) + "\"])"));
  }
  CheckInOrder({
      {"dictCreate([\"x\"])", "error: too many dictionaries"},
      {"dictCreate([1])", "error: too many dictionaries"},
      {"dictObjFree(300), dictObjFree(77)", "1, 1"},
      {"dictCreate([\"x\"]), dictCreate([\"y\"])", "77, 300"},
      {"dictObjSearch(511, \"w511\"), dictObjSearch(77, \"x\")", "[1, 1], [1, 1]"},
  });
}

TEST_F(Dictionary, WordsOutliveTheCollector) {
  const std::size_t protected_before = velmor_protected_count(heap());
  evaluate("dictCreate([\"he\", she, repeat(\"ab\", 2)])");
  for (int i = 0; i < 3; ++i) {
    evaluate("length(\"something else\")");
    velmor_collect(heap());
  }
  EXPECT_EQ(protected_before + 1, velmor_protected_count(heap()));
  EXPECT_EQ("\"he\", \"abab\"", evaluate("dictObjGet(1, 1), dictObjGet(1, 3)"));
}

// A creation that fails, for whatever reason, leaves no dictionary, block or protection.
TEST_F(Dictionary, FailedCreationLeavesNothing) {
  Check({{"dictCreate([\"he\", \"she\"])", "1", "", "dictObjFree(1)"}});
}

// The builtin dictionary holds no host objects, so it may outlive a result that failed.
TEST_F(Dictionary, BuiltinWithoutMemory) {
  evaluate("length(\"\")");
  const std::size_t live = live_blocks();
  std::size_t failures = 0;
  for (std::size_t k = 1;; k += 1 + k / 16) {  // it takes thousands of blocks
    fail_allocation(k);
    const std::string answer = evaluate("dictCreate(builtin)");
    fail_allocation(0);
    if (answer == "0") break;
    ++failures;
    ASSERT_EQ("error: out of memory", answer);
    evaluate("dictObjFree(0)");
    ASSERT_EQ(live, live_blocks()) << "failure " << k;
  }
  EXPECT_GT(failures, 50U);
}

TEST_F(Dictionary, FailedSearchIsNotAnAnswer) {
  EXPECT_EQ("1", evaluate("dictCreate([\"a\"])"));
  Check({
      {R"(dictObjSearch(1, "banana"), dictObjSearch(1, "nn"), dictObjGet(1, 1), dictObjSize(1))",
       R"([2, 1], [4, 1], [6, 1], [], "a", 1)"},
  });
}

}  // namespace
}  // namespace vstring_test
