#include "lexiva/methods.h"

#include <algorithm>

namespace velmor::lexiva {
namespace {

constexpr const char* kConstant = "constant";
constexpr const char* kLinear = "linear in the texts";
constexpr const char* kLinearResult = "linear in the result";
constexpr const char* kLinearMatches = "linear in the texts and the number of matches";
constexpr const char* kBitParallel = "O(|s| |t| / 64) time";

constexpr Method kRows[] = {
    // Substrings and editing.
    {"length ord char version", kConstant, ""},
    {"substr take drop insert reverse rotate shift exchange snarf has strchr strrchr cap numboccur "
     "max min",
     kLinear, ""},
    {"isprefix issuffix", "linear in p", ""},
    {"repeat iota fill", kLinearResult, ""},

    // Character classes, case and translation.
    {"islower haslower isupper hasupper isalpha hasalpha isdigit hasdigit isbdigit hasbdigit "
     "isodigit hasodigit isxdigit hasxdigit isalphaNumeric hasalphaNumeric isgraph hasgraph "
     "isprint hasprint ispunct haspunct iscntrl hascntrl isvowel hasvowel isident hasident "
     "isident1 hasident1 isdna hasdna isspace hasspace isascii hasascii",
     kLinear, ""},
    {"expandCharClass lowercase uppercase capitalise tr support squeeze delete", kLinear, ""},
    {"unaccent", kLinear, "canonical decomposition (NFD) of the Unicode Standard"},

    // Encodings and escapes.
    {"encode decode", kLinear,
     "S. Josefsson, RFC 4648, 2006 (hex, base64, base64url, base32); T. Berners-Lee et al., "
     "RFC 3986, 2005 (percent); N. Freed, N. Borenstein, RFC 2045, 1996 (quoted)"},
    {"visible escape unescape bytes frombytes", kLinear, ""},

    // Joining, splitting, orders.
    {"join implode explode split casejoin casesplit fmtmsg", kLinear, ""},
    {"lex revlex shortlex shortrevlex compare compareci", "linear in the shorter text", ""},
    {"wslo wreathorder lrpo rrpo issorted", kLinear, ""},
    {"sort", kLinear, "counting sort (H. H. Seward, 1954)"},

    // Searching and replacing.
    {"search searchx", kLinearMatches,
     "one pattern: the rarest bytes ahead, then M. Crochemore, D. Perrin, \"Two-way "
     "string-matching\", 1991; many: A. V. Aho, M. J. Corasick, \"Efficient string matching: an "
     "aid to bibliographic search\", 1975"},
    {"hsearch hsearchx psearch psearchx",
     "O(|text| |pattern|) time at most; an alignment is given up at k + 1 differences", ""},
    {"asearch asearchx asearchb asearchxb", "O(|text| k / 64 + |text|) time expected",
     "P. H. Sellers, \"The theory and computation of evolutionary distances: pattern "
     "recognition\", 1980; S. Wu, U. Manber, \"Fast text searching allowing errors\", 1992"},
    {"subst substx count", "linear in the texts and the result",
     "M. Crochemore, D. Perrin, \"Two-way string-matching\", 1991"},
    {"commonprefix commonsuffix ispalindrome brackets isbalanced", kLinear, ""},
    {"longestpalindrome palindromes", kLinear,
     "G. Manacher, \"A new linear-time on-line algorithm for finding the smallest initial "
     "palindrome of a string\", 1975"},
    {"dictCreate", "linear in the words, in time and memory",
     "A. V. Aho, M. J. Corasick, \"Efficient string matching: an aid to bibliographic search\", "
     "1975"},
    {"dictObjSize dictObjGet", kConstant, ""},
    {"dictObjSearch", kLinearMatches,
     "A. V. Aho, M. J. Corasick, \"Efficient string matching: an aid to bibliographic search\", "
     "1975"},
    {"dictObjFree", "linear in the words", ""},

    // Procedures over strings.
    {"map filter reject foldl foldr groupby tabulate", "one call of f for each letter or number",
     ""},

    // Regular expressions and wildcards.
    {"wild",
     "linear in the texts; O(|text| |pattern| / 64) time for segments of more than 64 elements "
     "with sets or ?",
     "R. A. Baeza-Yates, G. H. Gonnet, \"A new approach to text searching\", 1992"},
    {"regmatch regsub", "O(|text| |pattern|) time, for any pattern",
     "K. Thompson, \"Regular expression search algorithm\", 1968"},
    {"regsubs regsplit", "O(|text| |pattern|) time for all matches together",
     "K. Thompson, \"Regular expression search algorithm\", 1968; A. Frisch, L. Cardelli, "
     "\"Greedy regular expression matching\", 2004"},

    // Combinatorics on words.
    {"period isperiod border borderlen borderarray", kLinear,
     "J. H. Morris, V. R. Pratt, \"A linear pattern-matching algorithm\", 1970"},
    {"overlap", kLinear,
     "J. H. Morris, V. R. Pratt, \"A linear pattern-matching algorithm\", 1970"},
    {"lynfac", "linear in w, without memory",
     "J.-P. Duval, \"Factorizing words over an ordered alphabet\", 1983"},
    {"minconj conjp", kLinear, "Y. Shiloach, \"Fast canonization of circular strings\", 1981"},
    {"isprim primroot",
     "as many comparisons of w with its shift, at most, as its length has prime factors",
     "M. Lothaire, \"Combinatorics on Words\", 1983"},
    {"monfac rle isanagram", kLinear, ""},
    {"suffixarray", "linear in s",
     "G. Nong, S. Zhang, W. H. Chan, \"Linear suffix array construction by almost pure induced "
     "sorting\", 2009"},
    {"factorcount lcsubstring", kLinear,
     "sorted suffixes, as in suffixarray; J. Karkkainen, G. Manzini, S. J. Puglisi, \"Permuted "
     "longest-common-prefix array\", 2009"},
    {"repetitions", "O(n log n) time",
     "M. G. Main, R. J. Lorentz, \"An O(n log n) algorithm for finding all repetitions in a "
     "string\", 1984"},
    {"bwt", "linear in s",
     "M. Burrows, D. J. Wheeler, \"A block-sorting lossless data compression algorithm\", 1994; "
     "R. Giancarlo, A. Restivo, M. Sciortino, \"From first principles to the Burrows and Wheeler "
     "transform and beyond\", 2007"},
    {"unbwt", "linear in t",
     "M. Burrows, D. J. Wheeler, \"A block-sorting lossless data compression algorithm\", 1994"},
    {"nextperm", "linear in s",
     "D. E. Knuth, \"The Art of Computer Programming\", volume 4A, 2011, algorithm L"},
    {"morphism", "linear in the words up to the result", ""},
    {"fibword", kLinearResult, ""},
    {"thuemorse", kLinearResult, "A. Thue, 1906; M. Morse, 1921"},
    {"christoffel", kLinearResult,
     "J. Berstel et al., \"Combinatorics on words: Christoffel words and repetitions in words\", "
     "2008"},
    {"debruijn", kLinearResult,
     "H. Fredricksen, J. Maiorana, \"Necklaces of beads in k colors and k-ary de Bruijn "
     "sequences\", 1978"},
    {"lyndonwords", kLinearResult,
     "J.-P. Duval, \"Generation d'une section des classes de conjugaison et arbre des mots de "
     "Lyndon de longueur bornee\", 1988"},

    // Sequences, alignment, statistics.
    {"tally", kLinear, ""},
    {"entropy", kLinear, "C. E. Shannon, \"A mathematical theory of communication\", 1948"},
    {"wc revcomp", kLinear, ""},
    {"translate", kLinear, "the standard genetic code (NCBI table 1)"},
    {"edits", "O(|s| |t| / 64) time, less for a small distance; linear memory",
     "D. S. Hirschberg, \"A linear space algorithm for computing maximal common subsequences\", "
     "1975"},
    {"lcs", "O(|s| |t| / 64) time, linear memory",
     "D. S. Hirschberg, \"A linear space algorithm for computing maximal common subsequences\", "
     "1975"},
    {"align", "O(|s| |t|) time, linear memory",
     "S. B. Needleman, C. D. Wunsch, \"A general method applicable to the search for similarities "
     "in the amino acid sequence of two proteins\", 1970"},
    {"localalign", "O(|s| |t|) time, linear memory",
     "T. F. Smith, M. S. Waterman, \"Identification of common molecular subsequences\", 1981"},

    // Distances and likeness.
    {"hd", kLinear, "R. W. Hamming, 1950"},
    {"leedist leewt", kLinear, "C. Y. Lee, 1958"},
    {"prefixdist suffixdist", kLinear, ""},
    {"levenshtein editdist", "O(|s| |t| / 64) time, less for a small distance",
     "V. I. Levenshtein, 1965; G. Myers, \"A fast bit-vector algorithm for approximate string "
     "matching based on dynamic programming\", 1999"},
    {"damerau", "O(|s| |t|) time, linear memory",
     "F. J. Damerau, 1964; C. Zhao, S. Sahni, \"String correction using the Damerau-Levenshtein "
     "distance\", 2019"},
    {"osa", kBitParallel,
     "H. Hyyro, \"A bit-vector algorithm for computing Levenshtein and Damerau edit distances\", "
     "2003"},
    {"indel ratio", kBitParallel,
     "H. Hyyro, \"Bit-parallel LCS-length computation revisited\", 2004"},
    {"jaro", kLinear, "M. A. Jaro, \"Advances in record-linkage methodology\", 1989"},
    {"jarowinkler", kLinear,
     "W. E. Winkler, \"String comparator metrics and enhanced decision rules in the "
     "Fellegi-Sunter model of record linkage\", 1990"},
    {"partialratio", "O(|s| |t|) time, linear memory",
     "A. Tiskin, \"Semi-local string comparison: algorithmic techniques and applications\", 2008"},
    {"tokensort tokenset", "that of sorting the tokens, and of ratio", ""},
    {"cosine", "linear in the texts, whatever q is", "sorted suffixes, as in suffixarray"},
    {"closest", "at most that of the metric for each element", ""},

    // Randomness and digests.
    {"random", "linear in n, expected",
     "G. Marsaglia, \"A current view of random number generators\", 1985"},
    {"randperm", "linear in n", "R. A. Fisher, F. Yates, 1938"},
    {"randomise", kConstant, ""},
    {"hash", kLinear, "R. Rivest, RFC 1321 and RFC 1320, 1992"},
    {"digest", kLinear, "FIPS 180-4, 2015 (SHA); ISO 3309 (CRC-32)"},

    // Layout, language, time.
    {"wrap pad trim expand unexpand indent dedent lines words sentences", kLinear, ""},
    {"porter", kLinear, "M. F. Porter, \"An algorithm for suffix stripping\", 1980"},
    {"lancaster", kLinear, "C. D. Paice, \"Another stemmer\", 1990"},
    {"pstem prestem stem syllen ipsum fmttime parsetime", kLinear, ""},
    {"soundex", kLinear, "R. C. Russell, US patent 1261167, 1918"},
    {"metaphone", kLinear, "L. Philips, \"Hanging on the Metaphone\", 1990"},
    {"nysiis", kLinear, "R. L. Taft, \"Name search techniques\", 1970"},
    {"ngrams", kLinearResult, ""},
    {"readability", kLinear,
     "R. Flesch, \"A new readability yardstick\", 1948; J. P. Kincaid et al., 1975"},
};

bool names(std::string_view commands, std::string_view command) {
  while (!commands.empty()) {
    const std::string_view name = commands.substr(0, commands.find(' '));
    if (name == command) return true;
    commands.remove_prefix(std::min(name.size() + 1, commands.size()));
  }
  return false;
}

}  // namespace

std::span<const Method> methods() { return kRows; }

const Method* method_of(std::string_view command) {
  for (const Method& method : kRows)
    if (names(method.commands, command)) return &method;
  return nullptr;
}

}  // namespace velmor::lexiva
