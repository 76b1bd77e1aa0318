// What several calls are refused in the same words, by message: mostly counts and kinds of
// arguments. What one command says in words of its own stands in its family's tests.
#include <gtest/gtest.h>

#include "support/check.h"

namespace vstring_test {
namespace {

TEST(Refusals, CountsAndKinds) {
  CheckRefusals({
      {"first argument must be a string",
       R"(fmtmsg(7); metaphone(1); syllen(1); porter(["a"]); stem(1, 2); wrap(7); fill(1, -1); )"
       R"(hash(7); hash(7, method = md4); asearch(1, 2, 3); substx(["a"], 2, 3); )"
       "regsub(1, 2, 3); regsplit(1, 2); wild(7, 7); leewt(7); leedist(1, 2); "
       R"(suffixdist(2, "a"); isperiod(1, 0); overlap(1, 2); conjp(1, 2); uppercase(7, 7); )"
       "capitalise(7); tr(7, 7, 7); fmttime(7); fmttime(7, x = 1); explode(7); split(7, 7); "
       "length(5, 6); cap(1, 2, 3); revlex(7, 7, 7); wslo(7, 7, 7)"},
      {"expecting one argument, but got 0",
       "soundex(); metaphone(); syllen(); porter(); lancaster(); pstem(); prestem(); stem(); "
       "random(); randperm(); leewt(); period(); lynfac(); isvowel(); expandCharClass(); "
       "lowercase(); capitalise(); join(); implode(); explode(); split(); casejoin(); "
       "casesplit(); length(); sort()"},
      {"argument must be a string",
       R"(soundex(1); lancaster(1); pstem(1); prestem(1); period(7, "a"); borderarray(1); )"
       R"(lynfac(1); minconj(1.5); isprim(["a"]); primroot(-1); monfac(1, "a"); hasvowel(7, 7); )"
       "expandCharClass([a]); casesplit([a]); max(1); sort(7); issorted({})"},
      {"word must consist entirely of alphabetic characters",
       R"(syllen("a b"); syllen("\351"); lancaster("two words"); lancaster("caf\351"); )"
       R"(stem("ma ximum", paice))"},
      {"second argument must be positive",
       R"(wrap(7, 0); isperiod("ab", 0); drop("abc", -1); exchange("abc", 0, 1))"},
      {"expecting 2 arguments, but got 1",
       R"(fill("a"); regmatch("a"); regsubs("a" = "y"); regsplit("a"); wild("a"); hd("a"); )"
       R"(editdist(1); isperiod("ab"); overlap("a"); conjp("a"); strchr("a"); lex("a"); rrpo("a"))"},
      {"second argument must be a 32-bit integer",
       R"(fill("", 1.5); fill("", 2147483648); isperiod("ab", 2147483648); )"
       R"(insert("abc", "1", 1); exchange("abc", x, y))"},
      {"second argument must be non-negative",
       R"(fill("", -1); take("abc", -1); repeat("ab", -1))"},
      {"first argument must be a 32-bit integer",
       R"(random(x); random(2147483648); randperm("3"); randomise(1.5))"},
      {"expecting 3 arguments, but got 2",
       R"(asearch("a", "b"); subst("a", "b"); regsub("b", "b"); tr("ab", "x"); cap("a", "b"); )"
       R"(wslo("a", "b"))"},
      {"second argument must be a string",
       R"(asearchx("a", ["b"], x); subst("a", {"a"}, 3); regsub(b, 2, 3); regsubs(a = b, 3); )"
       R"(regsplit(a, 2); wild("a", ["a"]); prefixdist("a", 2); levenshtein(x, 2); )"
       R"(overlap("a", 2); conjp("a", ["a"]); tr("ab", 7, 7); join(["a", "b"], 7); )"
       R"(split("a", 7); snarf("abc", 3); has("", 1); strchr("a", {"a"}); shortlex(`a`, 7, 7); )"
       R"(wreathorder("a", 7, 7); compare("a", 7))"},
      {"third argument must be a string",
       R"(substx("a", "bb", 3); regsub(b, b, 3); tr("ab", "x", 7); insert("abc", 9, 1); )"
       R"(cap("s", "<", 3); shortrevlex("a", "ab", 7))"},
      {"optional arguments must be symbols", R"(regmatch("a", "a", 7); regmatch("a", "a", "m"); )"
                                             R"(regmatch("a", "a",1,2,3,4,5,6,7,8,9,10,11))"},
      {"cannot replace an empty match",
       R"(regsubs("x*" = "y", "xa"); regsubs("a" = "y", ""); regsubs("a*" = "", "aaa"))"},
      {"cannot split", R"(regsplit(",|$", "a,"); regsplit(",|$", "a"); regsplit("x*", "abc"))"},
      {"second argument must be a range",
       R"(isvowel("a", 1); hasvowel("a", x); uppercase("a", 7); explode("abc", 2); )"
       R"(substr("hello", 2))"},
      {"invalid range",
       R"(isvowel("a", 0 .. 1); hasvowel("", 1 .. 1); uppercase("a", 0 .. 1); )"
       R"(lowercase("", 1 .. 1); explode("abc", 1 .. 0); explode("abc", 3 .. 1); )"
       R"(substr("hello", 0 .. 2); substr("hello", 3 .. 1); substr("hello", -9 .. 2))"},
      {"first argument must be a list of strings",
       R"(join({"a"}); join("a"); join(7); join(["a", 7], 7); implode(["a", 7]); )"
       R"(casejoin({"a"}); casejoin(["a", 7]); casejoin(a))"},
      {"second argument is too large",
       R"(take("abc", 2147483648); take("abc", -2147483649); drop("abc", 99999999999999999999); )"
       R"(exchange("abc", 4, 5))"},
      {"integer argument is too large",
       "char(256); char(-1); char(-99999999999999999999); iota(2147483648)"},
      {"endpoints of range must be small integers",
       R"(iota(a .. "e"); iota(1, "e"); iota(1 .. 2147483648))"},
      {"invalid support string",
       R"(lex("a", "c", "ab"); lex("a", "c", ""); revlex("xab", "xcb", "a"); )"
       R"(shortlex("a", "c", "a"))"},
      {"too few parameters", R"(fmtmsg("ab%3", [1], 2); fmtmsg("%1%-2", [1]))"},
      {"second argument must be an integer", "wrap(7, obeylines = true); wrap(7, 4294967296)"},
      {"fourth argument must be 1, 2 or 3",
       R"(asearchb("a", "b", 1, "1"); asearchxb("a", "b", 1, 4294967297))"},
      {"bad algorithm selector (must be 1,2 or 3)",
       R"(asearchxb("a", "b", 1, 4); asearchb("a", "b", 1, -1))"},
      {"lower endpoint of range must be a small integer",
       R"(isvowel("a", 1.5 .. 2); substr("hello", "a" .. 2))"},
      {"invalid character class specification",
       R"(expandCharClass("z-a"); expandCharClass("[^a-\\z]"))"},
      {"upper endpoint of range must be a small integer",
       R"(lowercase("a", 1 .. b); substr("hello", 1 .. 2147483648))"},
      {"argument must be a list", R"(implode({"a"}); implode("a"))"},
      {"second argument must be a positive integer or a string",
       R"(take("abc", 1.5); drop("abc", [1]))"},
      {"integer argument must be in the range 1 .. 255", "iota(0); iota(256)"},
      {"left endpoint of range must be less than or equal to the right endpoint",
       R"(iota(70 .. 65); iota("z", "a"))"},
      {"expecting a list", R"(wslo("a", "b", {"a" = 1}); wslo("a", "b", 7))"},
  });
}

}  // namespace
}  // namespace vstring_test
