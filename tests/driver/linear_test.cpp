// What is claimed to be linear is linear: twice the input takes at most 2.1 times the instructions,
// on the inputs that are hardest for the usual shortcuts.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/check.h"
#include "support/instructions.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

constexpr std::size_t kSize = 100000;
const std::string kFibonacci = quoted(fibonacci_word(987));
const std::string kRun = quoted(std::string(60, 'a'));

// A call in which W(u) is the word u repeated to n bytes, H(u) to half of them, and F a Fibonacci
// word.
std::string instance(const std::string& call, std::size_t n) {
  std::string text;
  for (std::size_t i = 0; i < call.size(); ++i) {
    const bool is_word = call.compare(i, 2, "W(") == 0 || call.compare(i, 2, "H(") == 0;
    if (call[i] == 'F') text += kFibonacci;
    if (call[i] == 'R') text += kRun;
    if (call[i] != 'F' && call[i] != 'R' && !is_word) text += call[i];
    if (!is_word) continue;
    const std::size_t end = call.find(')', i);
    std::string word = call.substr(i + 2, end - i - 2);
    const std::size_t length = word == "F" ? 987 : word.size();
    word = word == "F" ? kFibonacci : vstring_test::quoted(word);
    const std::size_t times = n / length / (call[i] == 'H' ? 2 : 1);
    text += "repeat(" + word + ", " + std::to_string(times) + ")";
    i = end;
  }
  return text;
}

void check_linear(const std::string& call, std::size_t n = kSize) {
  const auto make = [&](std::size_t length) { return instance(call, length); };
  EXPECT_LE(growth(make, n), 2.1) << call;
}

TEST(LinearLongTier, Searching) {
  for (const char* const call : {
           "searchx(cap(H(a), \"\", \"b\"), W(a))",
           "searchx(cap(H(a), \"b\", \"\"), W(a))",
           "searchx(repeat(\"a\", 32), W(a))",
           "searchx(repeat(\"aba\", 1000), W(abaabab))",
           "searchx(cap(F, \"\", \"b\"), W(F))",
           "length(substx(W(a), repeat(\"a\", 32), \"b\"))",
           "asearchb(repeat(\"ab\", 100), W(aab), 5, 2)",
           "asearchb(repeat(\"ab\", 12), W(aabb), 4, 2)",
           "asearchb(\"abcdabcdabce\", W(abcd), 1, 2)",
           "length(substx(W(ab), \"aba\", \"abababab\"))",
           "wild(\"*a?b*\", W(a))",
           "wild(\"*[ab]a[ab]c*\", W(ab))",
           "search([cap(R, \"\", \"b\"), cap(R, \"b\", \"\")], W(a))",
           "search([\"abac\", \"abaabc\"], W(abaab))",  // beginnings that lead nowhere
           "search([W(a), W(ab)], \"ba\")",
           "count(cap(H(a), \"\", \"b\"), W(a), overlapping)",
           "length(longestpalindrome(cap(W(a), \"\", \"b\")))",
           "length(longestpalindrome(cap(W(F), \"\", \"c\")))",
           "size(palindromes(W(ab), 100000000))",
           "size(palindromes(W(a)))",
           "isbalanced(cap(W(([), \"\", \"]\"))",
           "size(brackets(cap(H([), \"\", H(}))))",
           "size(brackets(W([{]})))",
       })
    check_linear(call);
  // a, aa, aaa, ... of n bytes in all.
  const auto powers = [](std::size_t n) {
    std::string items = "\"a\"";
    const auto longest = static_cast<std::size_t>(std::sqrt(2.0 * static_cast<double>(n)));
    for (std::size_t i = 2; i <= longest; ++i)
      items += ", repeat(\"a\", " + std::to_string(i) + ")";
    return "search([" + items + "], \"b\")";
  };
  EXPECT_LE(growth(powers, kSize), 2.1);
}

TEST(LinearLongTier, RegularExpressions) {
  // Some can only be refused by trying: no byte stands in all that they match.
  for (const std::string pattern :
       {"(a|aa)+b", "(x+x+)+y", "(a|a)*b", "((a|b)*c)*d", "(a|aa)+(b|c)", "(x+x+)+(y|z)",
        "(a|a)*(b|c)", "((a|b)*c)*(d|e)", ".*.*.*=.*", ".*.*.*(=|:).*"}) {
    // Ten times as long, since some are refused after little more than a scan.
    check_linear("regmatch(\"" + pattern + "\", W(" + (pattern[1] == 'x' ? "x" : "a") + "))",
                 10 * kSize);
  }
  // All matches, or that there is none; some match where a longer match fails.
  for (const std::string pattern :
       {"(a|aa)+b", "(x+x+)+y", "(a|a)*b", ".*.*.*=.*", "(x+x+)+[yz]", "(a|a)*(b|c)",
        ".*.*.*(=|:).*", "a.*z|a", "(a|aa)+b|a", "(a|b|[ab])+c$|a"}) {
    const std::string word = pattern[1] == 'x' ? "W(x)" : "W(a)";
    check_linear("length(regsubs(\"" + pattern + "\" = \"bc\", " + word + "))");
    check_linear("length(join([regsplit(\"" + pattern + "\", " + word + ")]))");
  }
}

TEST(LinearLongTier, Words) {
  for (const std::string word : {"W(a)", "W(F)", "W(abaabb)"}) {
    for (const std::string& argument : {word, "cap(" + word + ", \"\", \"c\")"}) {
      for (const std::string command :
           {"border", "primroot", "minconj", "sort", "hash", "digest", "reverse"})
        check_linear("length(" + command + "(" + argument + "))");
      check_linear("period(" + argument + ")");
      check_linear("length(implode(lynfac(" + argument + ")))");
      check_linear("conjp(" + argument + ", rotate(" + argument + ", 100))");
      check_linear("overlap(" + word + ", " + argument + ")");
    }
  }
}

TEST(LinearLongTier, Layout) {
  for (const char* const call : {
           "length(wrap(W(abc ), 30))",
           "length(wrap(W(a), 30))",
           "length(wrap(W( ), 30))",
           "length(expand(W(a\tbc), 8))",
           "length(expand(W(\t), 8))",
           "length(unexpand(W( \t \n), 3))",
           "length(unexpand(W( ), 3))",
           "length(dedent(W(  a\n)))",
           "length(dedent(cap(W( ), \"\", \"a\")))",
           "length(dedent(W(\t\n)))",  // lines of nothing else
           "length(indent(W(a\n), 3))",
           "length(indent(W( \n), 3))",
           "length(trim(W(ab), \"ab\"))",
           "length(lines(W(a\r\n))[1])",
           "lines(W(\r\r\r\n))[1]",
       })
    check_linear(call);
}

// Much that words and sentences could be, looked back upon or ahead, but is not.
TEST(LinearLongTier, WordsAndSentences) {
  for (const char* const call : {
           "length(words(W(it))[1])",
           "words(W(a-))[1]",
           "length(words(W(a\342\200\231))[1])",
           "words(cap(W(\342\200\231), \"\", \"a\"))[1]",
           "length(words(cap(W(\342), \"-\", \"a\"))[1])",
           "length(sentences(W(A. ))[1])",
           "length(sentences(W(A. B. ))[1])",
           "length(sentences(W(e.g.))[1])",
           "length(sentences(W(.a ))[1])",
           "length(sentences(cap(W(.a), \"\", \". A\"))[1])",
           "length(sentences(cap(W(.), \"a\", \" A\"))[1])",
           "length(sentences(cap(W(]), \".\", \" A\"))[1])",
           "length(sentences(W(\"] ))[1])",
           "sentences(W( \n))",
           "ngrams(W(ab), 3)[1]",
           "readability(W(table. ))",
           "length(nysiis(W(mac)))",
           "length(nysiis(W(h)))",
           "length(nysiis(W(s)))",
       })
    check_linear(call);
}

TEST(LinearLongTier, Encodings) {
  for (const std::string scheme :
       {"null", "hex", "base64", "base64url", "base32", "rot13", "percent", "quoted"}) {
    for (const std::string text : {"W(a)", "W( =)"})
      check_linear("length(decode(encode(" + text + ", " + scheme + "), " + scheme + "))");
  }
  for (const char* const call : {
           "length(decode(W(QUJD\n), base64))",
           "length(decode(W(=\n), quoted))",
           "length(unescape(W(\\n)))",
           "length(unescape(W(\\101)))",
           "length(unescape(W(\\x41)))",
           "length(unescape(escape(W(\377))))",
           "length(visible(W(\377a)))",
           "bytes(W(ab))[1]",
           "length(unaccent(W(e\314\201)))",
           "length(squeeze(W(aab)))",
       })
    check_linear(call);
}

TEST(LinearLongTier, Times) {
  for (const char* const call : {
           "length(fmttime(W(a)))",
           "length(fmttime(W(%Y-%m-%d)))",
           "length(fmttime(W(%c%%)))",
           "parsetime(W( ), W(%t))",
           "parsetime(W(%), W(%%))",
           "parsetime(cap(W(1970), \"\", \" Z\"), cap(W(%Y), \"\", \"%z\"))",
       })
    check_linear(call);
}

}  // namespace
}  // namespace vstring_test
