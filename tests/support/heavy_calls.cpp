#include "support/heavy_calls.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "support/check.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

// In calls W(u) is the word u repeated to n bytes, H(u) to half of them, L(u) to a tenth, @ a
// Fibonacci word, # the number n.
constexpr const char* kLinear = R"(
substr(W(ab), 2 .. -2); take(W(ab), "z"); drop(W(ab), "z"); insert(W(a), 9, "x"); repeat("ab", #);
reverse(W(ab)); rotate(W(ab), 1); shift(W(ab), 1); exchange(W(ab), 1, 2); snarf(W(ab), "ba");
isprefix(W(a), W(a)); issuffix(W(a), W(a)); has("z", W(ab)); strchr("z", W(ab)); max(W(ab));
strrchr("z", W(ab)); cap(W(a), "x", W(b)); numboccur(W(a), "aaaa"); min(W(ab)); fill("x", #);
expandCharClass(W(a-c)); lowercase(W(aB)); uppercase(W(aB)); capitalise(W(a b)); pad("a", #, both);
tr("ab", "ba", W(ab)); tr(W(ab), W(ba), W(ab)); support(W(ab)); squeeze(W(aab)); unaccent(W(e\314\201));
delete(W(ab), "a"); lowercase(W(aB), 2 .. -2); visible(W(\377a)); unescape(W(\\n)); unescape(W(\\101));
unescape(W(\\x41)); unescape(escape(W(\377))); escape(W(\377)); bytes(L(ab)); frombytes(bytes(L(ab)));
decode(W(QUJD\n), base64); decode(W(=\n), quoted);

join(explode(L(ab))); implode(explode(L(ab))); join(split(L(a b))); casejoin(explode(L(ab)));
[casesplit(L(aB))]; fmtmsg("%1%1", W(ab)); fmtmsg(W(%%)); fmtmsg(W(%1), "ab"); lex(W(a), W(a));
revlex(W(a), W(a)); lex(W(a), W(a), "ab"); shortlex(W(a), W(a), "ab"); shortrevlex(W(a), W(a));
wslo(W(a), W(a), ["a" = 1]); wreathorder(W(ab), W(ab), ["a" = 1, "b" = 2]); lrpo(W(ab), W(ab));
lrpo(W(ab), W(ba)); rrpo(W(ab), W(ab)); rrpo(W(ab), W(ba)); compare(W(a), W(a));
compareci(W(aB), W(Ab)); issorted(W(a));

searchx(cap(H(a), "", "b"), W(a)); searchx(cap(H(a), "b", ""), W(a)); searchx(repeat("a", 32), L(a));
searchx(repeat("aba", 1000), W(abaabab)); searchx(cap("@", "", "b"), W(@));
substx(W(a), repeat("a", 32), "b"); substx(W(ab), "aba", "abababab"); subst(W(a), "ab", "x");
asearchb(repeat("ab", 100), W(aab), 5, 2); asearchb(repeat("ab", 12), W(aabb), 4, 2);
asearchb("abcdabcdabce", W(abcd), 1, 2); asearch(repeat("ab", 20), W(aab), 3);
asearchx(repeat("ab", 20), L(aab), 9); asearchxb(repeat("ab", 20), L(aab), 9, 3);
hsearch("bbbb", W(ab), 1); hsearchx("bbbb", L(ab), 2); psearch(repeat("ab", 9), W(aab), 3);
psearchx("abab", L(aab), 3); wild("*a?b*", W(a)); wild("*[ab]a[ab]c*", W(ab));
wild("*[ab]?b*c*", W(ab)); wild(W(*a), W(a)); search(["abac", "abaabc"], W(abaab));
search([cap(repeat("a", 60), "", "b"), cap(repeat("a", 60), "b", "")], W(a)); search([W(a), W(ab)], "ba");
searchx(["a", "aa", "b"], L(aab)); count(cap(H(a), "", "b"), W(a), overlapping);
commonprefix([W(ab), W(ab), W(ab)]); commonsuffix([W(ab), W(ab)]); ispalindrome(W(a));
longestpalindrome(cap(W(a), "", "b")); longestpalindrome(cap(W(@), "", "c"));
palindromes(W(ab), 100000000); palindromes(L(a)); isbalanced(cap(W(([), "", "]"));
brackets(cap(L([), "", L(}))); brackets(L([{]})); dictCreate(split(L(ab cd ef )));
dictObjSearch(dictCreate(builtin), L(theorem)); dictObjSearch(dictCreate(builtin), W(zzzq));

map(uppercase, L(ab)); filter(isdigit, L(a1)); reject(isdigit, L(a1)); tabulate(i -> "a", #);
foldl((r, c) -> c, "", L(ab)); foldr((c, r) -> c, "", L(ab)); groupby(isdigit, L(a1));

isperiod(W(ab), 2); conjp(W(ab), W(ba)); isprim(W(ab)); borderlen(W(aab)); overlap(W(aab), W(aabaab));
overlap(W(a), cap(W(a), "", "b")); borderarray(L(aab)); monfac(L(aab)); suffixarray(L(aab));
suffixarray(L(@)); factorcount(W(a)); factorcount(W(aab), 9); lcsubstring(W(aab), W(aba));
lcsubstring(W(@), reverse(W(@))); bwt(W(a)); bwt(W(@)); bwt(W(aab)); unbwt(W(ab), 1);
isanagram(W(ab), W(ba)); nextperm(cap(W(b), "a", "")); rle(L(ab)); rle(W(a)); fibword(#);
morphism(W(ab), ["a" = "ab", "b" = "a"]); thuemorse(#); christoffel(#, 100003);

tally(W(ab)); entropy(W(ab)); wc(W(a b\n)); revcomp(W(ACGTN)); translate(W(ATGGCN)); hd(W(ab), W(ba));
leedist(W(ab), W(ba)); leewt(W(ab)); prefixdist(W(a), W(a)); suffixdist(W(a), W(a));
jaro(W(ab), W(ba)); jarowinkler(W(a), W(aab)); cosine(W(aab), W(aba), 3); cosine(W(a), W(a), 999);
randomise(7), random(#, "abc"); randomise(7), randperm(length(L(a))); closest("abc", split(L(abd ))); closest("abc", split(L(abd )), 3, osa);

wrap(W(abc ), 30); wrap(W(a bc ), 7); wrap(W(a), 30); wrap(W( ), 30); expand(W(a\tbc), 8);
expand(W(\t), 8); unexpand(W( \t \n), 3); unexpand(W( ), 3); dedent(W(  a\n));
dedent(cap(W( ), "", "a")); dedent(W(\t\n)); indent(W(a\n), 3); indent(W( \n), 3);
trim(W(ab), "ab"); lines(L(a\r\n)); lines(L(\r\r\r\n)); pad(W(a), 9);
soundex(W(bd)); metaphone(W(ab)); metaphone(W(sch)); nysiis(W(mac));
nysiis(W(h)); nysiis(W(s)); ipsum(characters = #);

words(L(it )); words(W(it)); words(L(a-)); words(W(a\342\200\231));
words(cap(W(\342\200\231), "", "a")); words(cap(W(\342), "-", "a")); sentences(L(A. ));
sentences(L(A. B. )); sentences(W(e.g.)); sentences(W(.a )); sentences(cap(W(.a), "", ". A"));
sentences(cap(W(.), "a", " A")); sentences(cap(W(]), ".", " A")); sentences(L(\"] ));
sentences(L( \n)); ngrams(L(ab), 3); readability(W(table. )); fmttime(W(a), timestamp = 0); fmttime(W(%Y-%m-%d), timestamp = 0);
fmttime(W(%c%%), timestamp = 0); parsetime(W( ), W(%t)); parsetime(W(%), W(%%));
parsetime(cap(W(1970), "", " Z"), cap(W(%Y), "", "%z")))";

// Of a word: of one letter, a Fibonacci word, another, and each with a letter behind that none has.
constexpr const char* kOfWords = "border primroot minconj sort hash digest reverse period lynfac";
constexpr const char* kWords = "W(a); W(@); W(abaabb)";

constexpr const char* kClasses =
    "alpha alphaNumeric ascii bdigit cntrl digit dna graph ident ident1 lower odigit print punct "
    "space upper vowel xdigit";
constexpr const char* kSchemes = "null hex base64 base64url base32 rot13 percent quoted";

// All matches, or that there is none; some match where a longer match fails.
constexpr const char* kExpressions =
    "(a|aa)+b; (x+x+)+y; (a|a)*b; ((a|b)*c)*d; (a|aa)+(b|c); (x+x+)+(y|z); (a|a)*(b|c); "
    "((a|b)*c)*(d|e); .*.*.*=.*; .*.*.*(=|:).*; (x+x+)+[yz]; a.*z|a; (a|aa)+b|a; (a|b|[ab])+c$|a";

constexpr const char* kOther = R"(
iota(1 .. 255); debruijn("ab", 12); lyndonwords("ab", 9); repetitions(repeat("aab", 300));
repetitions(fibword(987)); edits(repeat("aab", 300), repeat("ab", 450)); lcs(fibword(987), repeat("ab", 450));
align(repeat("aab", 50), repeat("ab", 80)); localalign(repeat("aab", 50), repeat("ab", 80), gap = -1);
levenshtein(repeat("aab", 300), repeat("ab", 450)); editdist(repeat("aab", 300), repeat("ab", 450));
damerau(repeat("aab", 50), repeat("ba", 80)); osa(repeat("aab", 300), repeat("ba", 450));
indel(repeat("aab", 300), repeat("ab", 450)); ratio(repeat("aab", 300), repeat("ab", 450));
partialratio(repeat("aab", 30), repeat("ba", 80)); tokensort(repeat("b a c ", 50), repeat("c b", 80));
tokenset(repeat("b a c ", 50), repeat("c b", 80)); dictObjFree(dictCreate(builtin));
porter(repeat("ational", 18)); lancaster(repeat("maxim", 50)); pstem(repeat("ies", 80));
prestem(repeat("kilo", 60)); stem(repeat("ational", 18)); stem(repeat("maxim", 50), lancaster);
stem(repeat("maxim", 50), paice); stem(repeat("ies", 80), plural); stem(repeat("anti", 60), prefix);
syllen(repeat("banana", 170)))";

constexpr const char* kLimits = R"calls(
regmatch(repeat("a?", 1000), L(a)); regmatch(repeat("a*", 2000), L(b)); regsub(repeat("a", 32000), W(a), "&");
regmatch(cap("a", repeat("(", 9), repeat(")+", 9)), cap(W(a), "", "b")); regsplit(cap("b", repeat(".?", 99), ""), W(a));
regmatch(repeat("ab|", 2000), W(a)); regsubs(repeat("(a*)", 9) = repeat("\\9&", 99), L(a));
regmatch(cap(repeat("ab", 16000), "[", "]"), W(a)); regmatch(repeat("[^a-c]+", 800), L(d));
wild(repeat("*[ab]?", 3000), W(a)); wild(repeat("?", 30000), W(a)); wild(W([^a]), W(b));
wild(repeat("*a", 30000), cap(W(b), "", "a")); expandCharClass(W(\001-\377)); search(W(ab), W(ab));
searchx(split(L(ab abc b )), L(ab)); search(explode(L(ab)), W(ab)); suffixarray(W(@)); sort(W(ba));
asearch(repeat("ab", 3000), L(aab), 3000); asearchx(repeat("ab", 3000), L(aab), 2000); bwt(W(abaab));
asearchb(repeat("ab", 31), W(aab), 61, 3); hsearch(repeat("ab", 3000), L(aab), 254);
hsearchx(repeat("ab", 3000), L(aab), 3000); psearchx(repeat("ab", 3000), L(aab), 3000);
subst(W(a), W(a), W(ab)); count(W(aab), W(aab), overlapping); fmtmsg(W(%1%-1%0), 7);
fmttime(W(%c %Z %G), timestamp = 0); parsetime(W(1 ), W(%d )); repetitions(repeat("aab", 9999));
brackets(cap(repeat("([{<", 9999), "", repeat(">}])", 9999)));
unaccent(W(\377)); stem(repeat("a", 254), paice); syllen(repeat("a", 1024)); porter(repeat("a", 127));
debruijn("ab", 18); lyndonwords(iota(1 .. 255), 2); fibword(1000000); christoffel(99999, 100000);
morphism("a", ["a" = "ab", "b" = "a"], 25); lcs(repeat("ab", 9999), repeat("aab", 9999));
edits(repeat("ab", 9999), repeat("aab", 9999)); align(repeat("ab", 999), repeat("aab", 999));
localalign(repeat("ab", 999), repeat("aab", 999)); partialratio(repeat("ab", 999), repeat("aab", 999));
levenshtein(repeat("ab", 9999), repeat("aab", 9999)); damerau(repeat("ab", 999), repeat("ba", 999));
tokenset(repeat("b a c ", 999), repeat("c b", 999)); wreathorder(W(ab), W(ba), apply(c -> c = 1, explode(iota(1 .. 255)))))calls";

std::vector<std::string> calls_of(std::string table) {
  std::replace(table.begin(), table.end(), '\n', ' ');
  return separate(table.substr(table.find_first_not_of(' ')));
}

std::string instance(const std::string& call, std::size_t n) {
  std::string text;
  for (std::size_t i = 0; i < call.size(); ++i) {
    const char c = call[i];
    if (c == '#') {
      text += std::to_string(n);
    } else if (call.compare(i + 1, 1, "(") != 0 || (c != 'W' && c != 'H' && c != 'L')) {
      text += c;
    } else {
      const std::string word = call.substr(i + 2, call.find(')', i) - i - 2);
      const std::size_t bytes = c == 'H' ? n / 2 : c == 'L' ? n / 10 : n;
      const std::size_t times = bytes / (word == "@" ? 987 : word.size());
      text += "repeat(\"" + word + "\", " + std::to_string(times) + ")";
      i += word.size() + 2;
    }
  }
  static const std::string kFibonacci = fibonacci_word(987);
  for (std::size_t at; (at = text.find('@')) != text.npos;) text.replace(at, 1, kFibonacci);
  return text;
}

std::vector<std::string> instances(const std::vector<std::string>& calls, std::size_t n) {
  std::vector<std::string> result;
  for (const std::string& call : calls) result.push_back(instance(call, n));
  return result;
}

std::vector<std::string> words_of(const char* text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), {}};
}

}  // namespace

std::vector<std::string> linear_calls(std::size_t n) {
  std::vector<std::string> calls = calls_of(kLinear);
  for (const std::string& word : calls_of(kWords)) {
    for (const std::string& text : {word, "cap(" + word + ", \"\", \"c\")"}) {
      for (const std::string& command : words_of(kOfWords))
        calls.push_back(command + "(" + text + ")");
      calls.push_back("conjp(" + text + ", rotate(" + text + ", 100))");
    }
  }
  for (const std::string& scheme : words_of(kSchemes)) {
    for (const std::string text : {"W(a)", "W( =)"})
      calls.push_back("decode(encode(" + text + ", " + scheme + "), " + scheme + ")");
  }
  for (const std::string& name : words_of(kClasses)) {
    for (const std::string question : {"is", "has"})
      calls.push_back(question + name + "(W(a1A\\t))");
  }
  return instances(calls, n);
}

std::vector<std::string> regex_calls(std::size_t n) {
  std::vector<std::string> calls;
  for (const std::string& pattern : calls_of(kExpressions)) {
    const std::string quoted_pattern = "\"" + pattern + "\"";
    const std::string text = pattern[1] == 'x' ? "(x)" : "(a)";
    calls.push_back("regmatch(" + quoted_pattern + ", W" + text + ")");
    calls.push_back("regsub(" + quoted_pattern + ", W" + text + ", \"&\")");
    calls.push_back("regsubs(" + quoted_pattern + " = \"bc\", W" + text + ")");
    calls.push_back("[regsplit(" + quoted_pattern + ", L" + text + ")]");
  }
  return instances(calls, n);
}

std::vector<std::string> other_calls() { return calls_of(kOther); }

std::vector<std::string> limit_calls(std::size_t n) { return instances(calls_of(kLimits), n); }

}  // namespace vstring_test
