// What is claimed to be linear is linear: twice the input takes at most 2.1 times the instructions,
// on the inputs that are hardest for the usual shortcuts.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

#include "support/instructions.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

using Make = std::function<std::string(std::size_t n)>;

// `word` repeated to n bytes, as a call.
std::string text(const std::string& word, std::size_t n) {
  return "repeat(\"" + word + "\", " + std::to_string(n / word.size()) + ")";
}

void check_linear(std::initializer_list<Make> calls) {
  constexpr std::size_t kSize = 100000;
  for (const Make& make : calls) EXPECT_LE(growth(make, kSize), 2.1) << make(64);
}

// The same calls over one command each.
void check_linear(std::initializer_list<const char*> commands, const Make& argument) {
  for (const std::string command : commands) {
    check_linear({[&](std::size_t n) { return "length(" + command + "(" + argument(n) + "))"; }});
  }
}

const std::string kFibonacci = fibonacci_word(987);

TEST(LinearLongTier, OnePattern) {
  const auto search = [](const std::string& pattern, const std::string& searched) {
    return "searchx(" + pattern + ", " + searched + ")";
  };
  check_linear({
      [&](std::size_t n) {
        return search("cap(" + text("a", n / 2) + ", \"\", \"b\")", text("a", n));
      },
      [&](std::size_t n) {
        return search("cap(" + text("a", n / 2) + ", \"b\", \"\")", text("a", n));
      },
      [&](std::size_t n) { return search(text("a", 32), text("a", n)); },
      [&](std::size_t n) { return search(text("aba", 3000), text("abaabab", n)); },
      [&](std::size_t n) { return search("\"" + kFibonacci + "b\"", text(kFibonacci, n)); },
      [&](std::size_t n) {
        return "length(substx(" + text("a", n) + ", " + text("a", 32) + ", \"b\"))";
      },
      [&](std::size_t n) {
        return "asearchb(" + text("ab", 200) + ", " + text("aab", n) + ", 5, 2)";
      },
  });
}

TEST(LinearLongTier, ManyPatterns) {
  const auto list = [](std::size_t patterns) {
    std::string items = text("a", 1);
    for (std::size_t i = 2; i <= patterns; ++i) items += ", " + text("a", i);
    return "[" + items + "]";
  };
  const std::string a60 = std::string(60, 'a');
  check_linear({
      [&](std::size_t n) {
        return "search([\"" + a60 + "b\", \"b" + a60 + "\"], " + text("a", n) + ")";
      },
      // Full of beginnings that lead nowhere.
      [&](std::size_t n) { return "search([\"abac\", \"abaabc\"], " + text("abaab", n) + ")"; },
      [&](std::size_t n) {
        return "search([" + text("a", n) + ", " + text("ab", n) + "], \"ba\")";
      },
      // a, aa, aaa, ... of n bytes in all.
      [&](std::size_t n) {
        const auto longest = static_cast<std::size_t>(std::sqrt(2.0 * static_cast<double>(n)));
        return "search(" + list(longest) + ", \"b\")";
      },
  });
}

TEST(LinearLongTier, RegularExpressions) {
  // The last four can only be refused by trying: no byte stands in all that they match.
  for (const std::string pattern :
       {"(a|aa)+b", "(x+x+)+y", "(a|a)*b", "((a|b)*c)*d", "(a|aa)+(b|c)", "(x+x+)+(y|z)",
        "(a|a)*(b|c)", "((a|b)*c)*(d|e)"}) {
    const std::string letter = pattern[1] == 'x' ? "x" : "a";
    check_linear(
        {[&](std::size_t n) { return "regmatch(\"" + pattern + "\", " + text(letter, n) + ")"; }});
  }
  check_linear({
      [](std::size_t n) { return "length(regsubs(\"a.*z|a\" = \"b\", " + text("a", n) + "))"; },
      [](std::size_t n) { return "length(join([regsplit(\"a.*z|a\", " + text("a", n) + ")]))"; },
  });
}

TEST(LinearLongTier, Words) {
  for (const std::string& word : {std::string("a"), kFibonacci, std::string("abaabb")}) {
    const Make whole = [&](std::size_t n) { return text(word, n); };
    const Make ended = [&](std::size_t n) { return "cap(" + text(word, n) + ", \"\", \"c\")"; };
    for (const Make& argument : {whole, ended}) {
      check_linear({"border", "primroot", "minconj", "sort", "hash", "reverse"}, argument);
      check_linear({[&](std::size_t n) { return "period(" + argument(n) + ")"; },
                    [&](std::size_t n) { return "length(implode(lynfac(" + argument(n) + ")))"; }});
    }
  }
}

}  // namespace
}  // namespace vstring_test
