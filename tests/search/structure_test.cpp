// Counts, common beginnings and ends, palindromes and brackets, beside their definitions.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

TEST(Structure, CountsOfAllShortWords) {
  for (const std::string& pattern : all_words("ab", 3)) {
    for (const std::string& text : all_words("ab", 8)) {
      std::size_t all = 0;
      std::size_t apart = 0;
      std::size_t free_from = 0;
      for (std::size_t i = 0; !pattern.empty() && i + pattern.size() <= text.size(); ++i) {
        if (text.compare(i, pattern.size(), pattern) != 0) continue;
        ++all;
        if (i < free_from) continue;
        ++apart;
        free_from = i + pattern.size();
      }
      ASSERT_EQ(printed(apart), call(vstring_count, {pattern, text})) << pattern << ' ' << text;
      ASSERT_EQ(printed(all), call(vstring_count, {pattern, text, "overlapping"}))
          << pattern << ' ' << text;
    }
  }
}

bool is_palindrome(const std::string& text) {
  return std::equal(text.begin(), text.end(), text.rbegin());
}

TEST(Structure, PalindromesOfAllShortWords) {
  std::vector<std::string> words = all_words("ab", 9);
  for (const std::string& word : all_words("abc", 6)) words.push_back(word);
  for (const std::string& word : words) {
    ASSERT_EQ(printed(is_palindrome(word)), call(vstring_ispalindrome, {word}));
    std::string longest;
    std::vector<std::vector<std::size_t>> found;
    for (std::size_t centre = 0; centre + 1 < 2 * word.size(); ++centre) {
      std::size_t length = 0;
      std::size_t start = word.size();
      for (std::size_t i = 0; 2 * i <= centre; ++i) {
        const std::size_t size = centre + 1 - 2 * i;
        if (i + size > word.size() || !is_palindrome(word.substr(i, size))) continue;
        start = i;
        length = size;
        break;
      }
      if (start == word.size()) continue;
      found.push_back({start + 1, length});
      if (length > longest.size()) longest = word.substr(start, length);
    }
    ASSERT_EQ(printed(longest), call(vstring_longestpalindrome, {word}));
    ASSERT_EQ(printed(found), call(vstring_palindromes, {word, 1})) << word;
    std::erase_if(found, [](const auto& pair) { return pair[1] < 3; });
    ASSERT_EQ(printed(found), call(vstring_palindromes, {word, 3})) << word;
  }
}

// Taking matching neighbours out until none is left.
bool is_balanced(std::string text) {
  for (std::size_t i = 0; i + 1 < text.size();) {
    const std::string pair = text.substr(i, 2);
    if (pair == "()" || pair == "[]") {
      text.erase(i, 2);
      i = 0;
    } else {
      ++i;
    }
  }
  return text.empty();
}

// A closing bracket looks back for the last opening one that is free still.
std::vector<std::vector<std::size_t>> brackets_of(const std::string& text) {
  std::vector<std::vector<std::size_t>> at(text.size());
  for (std::size_t j = 0; j < text.size(); ++j) {
    const bool opens = text[j] == '(' || text[j] == '[';
    if (text[j] != 'x') at[j] = opens ? std::vector{j + 1, 0UL} : std::vector{0UL, j + 1};
    std::size_t i = j;
    while (i-- > 0) {
      if (!at[i].empty() && at[i][1] == 0) break;
    }
    if (opens || i > j || (text[i] == '(' ? ')' : ']') != text[j]) continue;
    at[i][1] = j + 1;
    at[j].clear();
  }
  std::erase_if(at, [](const auto& pair) { return pair.empty(); });
  return at;
}

TEST(Structure, BracketsOfAllShortWords) {
  std::vector<std::string> words = all_words("([])", 7);
  for (const std::string& word : all_words("([])x", 4)) words.push_back(word);
  for (const std::string& word : words) {
    ASSERT_EQ(printed(brackets_of(word)), call(vstring_brackets, {word})) << word;
    std::string brackets = word;
    std::erase(brackets, 'x');
    ASSERT_EQ(printed(is_balanced(brackets)), call(vstring_isbalanced, {word})) << word;
  }
}

TEST(Structure, ValuesAndRefusals) {
  Check({
      {R"(count("aa", "aaaaa"), count("aa", aaaaa, overlapping), count("", "abc"))", "2, 4, 0"},
      {R"(count("abc", ""), count("na", "banana", "overlapping", 7))", "0, 2"},
      {R"(commonprefix([]), commonprefix(["abc"]), commonprefix(["a", ""]), commonsuffix([]))",
       R"("", "abc", "", "")"},
      {R"(commonprefix([interview, "inter", "interval"], 7), commonsuffix(["x", "yx", "zyx"]))",
       R"("inter", "x")"},
      {R"(longestpalindrome("abcd"), longestpalindrome("abbaxcddc"), longestpalindrome(""))",
       R"("a", "abba", "")"},
      {R"(palindromes("abba"), palindromes("aaa", 1), palindromes("abc"), palindromes(""))",
       "[[1, 4]], [[1, 1], [1, 2], [1, 3], [2, 2], [3, 1]], [], []"},
      {R"(brackets("([)]"), brackets(")("), brackets("<a>", "<>"), brackets("abc"))",
       "[[1, 0], [2, 4], [0, 3]], [[0, 1], [2, 0]], [[1, 3]], []"},
      {R"(isbalanced("("), isbalanced(""), isbalanced("(((", ""), isbalanced("\377a\001", "\377\001"))",
       "false, true, true, true"},
      {R"(isbalanced(cap(repeat("([{", 30000), "", repeat("}]) ", 30000))))", "true"},
  });
  CheckRefusals({
      {"unrecognised option `\"all\"'", R"(count("a", "b", "all"))"},
      {"unrecognised option `Overlapping'", R"(count("a", "b", Overlapping))"},
      {"second argument must be positive", R"(palindromes("a", 0))"},
      {"second argument must consist of pairs of distinct bytes",
       R"(isbalanced("a", "(("); brackets("a", "()["); brackets("", "()<("); brackets("", "()><>="))"},
  });
  CheckIdentity({{"abba", "longestpalindrome(x)", "", "commonprefix([x]); commonsuffix([x])"}});
}

}  // namespace
}  // namespace vstring_test
