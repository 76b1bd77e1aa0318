// What calls are refused with: counts and kinds of arguments, made from the kinds that each command
// wants; then what several commands say in the same words. What one command says in words of its
// own stands in its family's tests.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <sstream>

#include "support/check.h"

namespace vstring_test {
namespace {

struct Kind {
  const char* good;
  const char* words;  // behind "first", "second" ...
  std::vector<std::string> wrong;
};
const std::map<char, Kind> kKinds = {
    {'s', {"\"a\"", " argument must be a string", {"7", "1.5", "1 .. 2", "\"a\" = \"b\""}}},
    {'i', {"1", " argument must be a 32-bit integer", {"\"1\"", "2147483648", "x", "[1]"}}},
    {'r', {"1 .. 1", " argument must be a range", {"1", "\"a\"", "[1, 1]"}}},
    {'l', {"[\"a\"]", " argument must be a list of strings", {"{\"a\"}", "\"a\"", "[\"a\", 7]"}}},
    {'?', {"", "", {}}},  // tested elsewhere
};

// The kinds of arguments; behind a bracket those that may be left out. A lone argument, t, is just
// "argument" in messages.
const std::pair<const char*, const char*> kCommands[] = {
    {"s", "capitalise leewt length metaphone ord porter reverse stem syllen"},
    {"t",
     "border borderarray borderlen bwt casesplit dedent entropy escape expandCharClass "
     "ispalindrome isprim issorted lancaster lines longestpalindrome lynfac max min minconj "
     "monfac nextperm nysiis period prestem primroot pstem repetitions rle sentences sort "
     "soundex suffixarray support translate unescape visible wc words"},
    {"t[r",
     "hasalpha hasalphaNumeric hasascii hasbdigit hascntrl hasdigit hasdna hasgraph hasident "
     "hasident1 haslower hasodigit hasprint haspunct hasspace hasupper hasvowel hasxdigit isalpha "
     "isalphaNumeric isascii isbdigit iscntrl isdigit isdna isgraph isident isident1 islower "
     "isodigit isprint ispunct isspace isupper isvowel isxdigit"},
    {"s[r", "bytes explode lowercase uppercase"},
    {"s[s", "brackets isbalanced parsetime readability revcomp split squeeze unaccent"},
    {"s[?", "digest"},
    {"s[i", "expand factorcount palindromes unexpand"},
    {"i", "random randperm"},
    {"i[s", "fibword thuemorse"},
    {"l", "casejoin commonprefix commonsuffix join"},
    {"si", "debruijn fill isperiod lyndonwords repeat shift unbwt"},
    {"sl[is", "closest"},
    {"s[ss", "trim"},
    {"si[s", "pad"},
    {"sr", "substr"},
    {"ss",
     "align compare compareci conjp damerau decode delete editdist edits encode has hd indel "
     "isanagram isprefix "
     "issuffix "
     "jaro jarowinkler lcs lcsubstring leedist levenshtein localalign lrpo numboccur osa overlap "
     "partialratio prefixdist ratio regsplit rrpo search searchx snarf strchr strrchr suffixdist "
     "tokenset tokensort wild"},
    {"ss[s", "count lex revlex shortlex shortrevlex"},
    {"sss", "cap regsub subst substx tr"},
    {"sis", "insert"},
    {"sii", "exchange"},
    {"ii[s", "christoffel"},
    {"ssi", "asearch asearchx cosine hsearch hsearchx psearch psearchx"},
    {"ssi?", "asearchb asearchxb"},
    {"ss?", "wreathorder wslo"},
    {"s?", "drop indent morphism rotate take"},
    {"i?", "dictObjSearch"},
    {"?", "char dictCreate dictObjFree dictObjSize frombytes implode tally"},
    {"??", "dictObjGet regmatch regsubs"},
};

// Each count that is too small, of arguments that are all wrong; then at each place each wrong
// kind, all behind it being wrong too.
void check_command(const std::string& command, std::string kinds) {
  const std::size_t required = std::min(kinds.find('['), kinds.size());
  kinds.erase(std::remove(kinds.begin(), kinds.end(), '['), kinds.end());
  const auto call = [&](std::string arguments, std::size_t more) {
    for (; more > 0; --more) arguments += arguments.empty() ? "1.5" : ", 1.5";
    return command + "(" + arguments + ")";
  };
  const std::string expecting =
      required == 1 ? "one argument" : std::to_string(required) + " arguments";
  for (std::size_t n = 0; n < required; ++n)
    Check({{call("", n), "error: expecting " + expecting + ", but got " + std::to_string(n)}});
  constexpr const char* kOrdinals[] = {"first", "second", "third", "fourth"};
  std::string before;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const bool is_lone = kinds[i] == 't';
    const Kind& kind = kKinds.at(is_lone ? 's' : kinds[i]);
    const std::string message =
        "error: " + (is_lone ? kind.words + 1 : kOrdinals[i] + std::string(kind.words));
    for (const std::string& wrong : kind.wrong)
      Check({{call(before + wrong, kinds.size() - i - 1), message}});
    before += std::string(kind.good) + ", ";
  }
}

TEST(Refusals, CountsAndKindsOfEachCommand) {
  for (const auto& [kinds, commands] : kCommands) {
    std::istringstream in(commands);
    for (std::string command; in >> command;) check_command(command, kinds);
  }
}

TEST(Refusals, CountsAndKinds) {
  CheckRefusals({
      {"first argument must be a string",
       "fmtmsg(7); hash(7); hash(7, method = md4); wrap(7); rotate(1, x); wreathorder(7, 7, 7); "
       "fmttime(7); fmttime(7, x = 1)"},
      {"word must consist entirely of alphabetic characters",
       R"(syllen("a b"); syllen("\351"); lancaster("two words"); lancaster("caf\351"); )"
       R"(stem("ma ximum", paice))"},
      {"second argument must be positive",
       R"(wrap(7, 0); isperiod("ab", 0); drop("abc", -1); exchange("abc", 0, 1))"},
      {"second argument must be non-negative",
       R"(fill("", -1); take("abc", -1); repeat("ab", -1))"},
      {"first argument must be a 32-bit integer", "randomise(1.5)"},
      {"optional arguments must be symbols", R"(regmatch("a", "a", 7); regmatch("a", "a", "m"); )"
                                             R"(regmatch("a", "a",1,2,3,4,5,6,7,8,9,10,11))"},
      {"cannot replace an empty match",
       R"(regsubs("x*" = "y", "xa"); regsubs("a" = "y", ""); regsubs("a*" = "", "aaa"))"},
      {"cannot split", R"(regsplit(",|$", "a,"); regsplit(",|$", "a"); regsplit("x*", "abc"))"},
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
