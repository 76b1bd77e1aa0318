#include "text/language/metaphone.h"

#include <cctype>
#include <cstdint>
#include <iterator>

#include "charclass/class_table.h"
#include "text/language/rule_table.h"

namespace vstring::text {
namespace {

// A set of neighbours: bit n for the n-th capital, and one each for the blank beyond either end
// and for letters outside A to Z.
using LetterSet = std::uint32_t;

constexpr LetterSet bit(Byte c) {
  if (c >= 'A' && c <= 'Z') return LetterSet{1} << (c - 'A');
  return LetterSet{1} << (c == ' ' ? 26 : 27);
}

constexpr LetterSet kAnything = (LetterSet{1} << 28) - 1;

constexpr bool is_capital(char c) { return c >= 'A' && c <= 'Z'; }

// A letter in the word, with the numbers that a rule may ask for.
struct Place {
  LetterSet neighbours[4];  // p, then x1, x2, x3: the letter before, and the three after
  std::size_t numbers[2];   // i, then r: how many letters are before, and how many are after
};

// Letter, context, code. A context is a list of tests, all of which must hold:
//   p=LETTERS  p!LETTERS     one of the letters (none of them) stands before; likewise x1, x2 and
//                            x3 for the first, second and third letter after
//   i=N  i>N                 exactly N (more than N) letters come before; likewise r for those
//                            that come after
struct Rule {
  LetterSet neighbours[4] = {kAnything, kAnything, kAnything, kAnything};
  std::uint32_t at_least[2] = {0, 0};
  std::uint32_t at_most[2] = {UINT32_MAX, UINT32_MAX};
  Byte letter;
  Byte code[2] = {};
  std::uint8_t code_size = 0;
  bool always = true;

  consteval Rule(char for_letter, const char* context, const char* written)
      : letter(static_cast<Byte>(for_letter)), always(*context == '\0') {
    while (*context != '\0') {
      context = parse_test(context);
      if (*context == ' ' && context[1] != '\0') ++context;
    }
    for (; *written != '\0'; ++written) {
      if (code_size == 2 || !(is_capital(*written) || *written == '0')) malformed_row();
      code[code_size++] = static_cast<Byte>(*written);
    }
  }

  // Reads one test and returns where the next one starts.
  consteval const char* parse_test(const char* p) {
    if (*p == 'p') return parse_neighbour(p + 1, neighbours[0]);
    if (*p == 'x' && p[1] >= '1' && p[1] <= '3') {
      return parse_neighbour(p + 2, neighbours[p[1] - '0']);
    }
    if (*p != 'i' && *p != 'r') malformed_row();
    return parse_number(p + 1, *p == 'i' ? 0 : 1);
  }

  consteval const char* parse_neighbour(const char* p, LetterSet& set) {
    const char test = *p++;
    LetterSet letters = 0;
    for (; is_capital(*p); ++p) letters |= bit(static_cast<Byte>(*p));
    if ((test != '=' && test != '!') || letters == 0) malformed_row();
    set = test == '=' ? letters : kAnything & ~letters;
    return p;
  }

  consteval const char* parse_number(const char* p, int which) {
    if ((*p != '=' && *p != '>') || p[1] < '0' || p[1] > '9') malformed_row();
    const auto n = static_cast<std::uint32_t>(p[1] - '0');
    at_least[which] = *p == '=' ? n : n + 1;
    if (*p == '=') at_most[which] = n;
    return p + 2;
  }

  bool applies(const Place& place) const {
    for (int k = 0; k < 4; ++k) {
      if ((neighbours[k] & place.neighbours[k]) == 0) return false;
    }
    for (int k = 0; k < 2; ++k) {
      if (place.numbers[k] < at_least[k] || place.numbers[k] > at_most[k]) return false;
    }
    return true;
  }
};

// The first row of a letter whose context fits is used. A C after a C keeps its letter.
// clang-format off
constexpr Rule kRules[] = {
    {'B', "r=0 p=M",             ""},    // dumb       TM
    {'B', "",                    "B"},   // bat        BT

    {'C', "p=S i>1 x1=EIY",      ""},    // ascent     ASNT
    {'C', "i>0 x1=I x2=A",       "X"},   // special    SPXL
    {'C', "x1=EIY",              "S"},   // city       ST
    {'C', "p=S i>1 x1=H",        "K"},   // discharge  TSKRJ
    {'C', "x1=H i=0 x2!AEIOU",   "K"},   // chrome     KRM
    {'C', "x1=H",                "X"},   // chat       XT
    {'C', "p=C",                 "C"},   // accord     ACRT
    {'C', "",                    "K"},   // cat        KT

    {'D', "x1=G x2=EIY",         "J"},   // edge       EJ
    {'D', "",                    "T"},   // dot        TT

    {'F', "",                    "F"},   // fan        FN

    {'G', "x1=H r>1 x2!AEIOU",   ""},    // night      NT
    {'G', "x1=N r=3 x2=E x3=D",  ""},    // signed     SNT
    {'G', "x1=N r=1",            ""},    // sign       SN
    {'G', "p=D x1=EIY",          ""},    // edge       EJ
    {'G', "x1=EIY p!G",          "J"},   // gem        JM
    {'G', "",                    "K"},   // got        KT

    {'H', "p=SCTPG",             ""},    // phone      FN
    {'H', "p=AEIOU x1!AEIOU",    ""},    // ah         A
    {'H', "",                    "H"},   // hat        HT

    {'J', "",                    "J"},   // jam        JM

    {'K', "p=C",                 ""},    // back       BK
    {'K', "",                    "K"},   // kit        KT

    {'L', "",                    "L"},   // let        LT
    {'M', "",                    "M"},   // met        MT
    {'N', "",                    "N"},   // net        NT

    {'P', "x1=H",                "F"},   // phone      FN
    {'P', "",                    "P"},   // pot        PT

    {'Q', "",                    "K"},   // quit       KT
    {'R', "",                    "R"},   // rat        RT

    {'S', "x1=H",                "X"},   // ship       XP
    {'S', "x1=I i>1 x2=AO",      "X"},   // vision     FXN
    {'S', "",                    "S"},   // sat        ST

    {'T', "x1=I i>1 x2=AO",      "X"},   // nation     NXN
    {'T', "x1=H i=0 x2!AEIOU",   "T"},   // throw      TR
    {'T', "x1=H",                "0"},   // thing      0NK
    {'T', "x1=C r>2 x2=H",       ""},    // hatchet    HXT
    {'T', "",                    "T"},   // top        TP

    {'V', "",                    "F"},   // van        FN

    {'W', "x1=AEIOU",            "W"},   // wet        WT
    {'W', "",                    ""},    // draw       TR

    {'X', "",                    "KS"},  // boxer      BKSR

    {'Y', "x1=AEIOU",            "Y"},   // yet        YT
    {'Y', "",                    ""},    // day        T

    {'Z', "",                    "S"},   // zoo        S
};
// clang-format on

// Where each letter's rows begin; the last of them must always apply, so that a search ends there.
struct RuleIndex {
  const Rule* first[26] = {};

  consteval RuleIndex() {
    const Rule* previous = nullptr;
    for (const Rule& rule : kRules) {
      const bool starts = previous == nullptr || previous->letter != rule.letter;
      if (rule.letter < 'B' || rule.letter > 'Z') malformed_row();
      if (starts && first[rule.letter - 'A'] != nullptr) malformed_row();
      if (starts != (previous == nullptr || previous->always)) malformed_row();
      if (starts) first[rule.letter - 'A'] = &rule;
      previous = &rule;
    }
    if (!previous->always) malformed_row();
  }
};
constexpr RuleIndex kIndex;

constexpr LetterSet kVowels = bit('A') | bit('E') | bit('I') | bit('O') | bit('U');

bool is_vowel(Byte c) { return (bit(c) & kVowels) != 0; }

// The letters of a text in upper case, with blanks beyond the end.
class Word {
 public:
  explicit Word(Bytes text) {
    for (const Byte c : text) {
      if (!charclass::is(c, charclass::kAlpha)) continue;
      if (size_ == kLongestMetaphoneText) break;
      letters_[size_++] = static_cast<Byte>(std::toupper(c));
    }
    simplify_start();
    if (size_ > 0 && (*this)[size_ - 1] == 'S') --size_;
  }

  std::size_t size() const { return size_; }
  Byte operator[](std::size_t i) const { return i < size_ ? first_[i] : Byte{' '}; }

  Place place(std::size_t i) const {
    const Byte before = i == 0 ? Byte{' '} : first_[i - 1];
    return {{bit(before), bit((*this)[i + 1]), bit((*this)[i + 2]), bit((*this)[i + 3])},
            {i, size_ - 1 - i}};
  }

 private:
  void drop_first() {
    ++first_;
    --size_;
  }

  void simplify_start() {
    for (const char* pair : {"AE", "GN", "KN", "PN", "WR"}) {
      if ((*this)[0] == static_cast<Byte>(pair[0]) && (*this)[1] == static_cast<Byte>(pair[1])) {
        drop_first();
        break;
      }
    }
    if ((*this)[0] == 'X') *first_ = 'S';
    if ((*this)[0] == 'W' && (*this)[1] == 'H') {
      drop_first();
      *first_ = 'W';
    }
  }

  Byte letters_[kLongestMetaphoneText];
  Byte* first_ = letters_;
  std::size_t size_ = 0;
};

}  // namespace

std::size_t metaphone(Bytes text, MutableBytes out) {
  const Word word(text);
  const std::size_t room = out.size() < kLongestMetaphoneKey ? out.size() : kLongestMetaphoneKey;
  std::size_t n = 0;
  for (std::size_t i = 0; i < word.size() && n < room; ++i) {
    const Byte c = word[i];
    if (i == 0 && is_vowel(c)) out[n++] = c;
    if (c == word[i + 1] || c < 'B' || c > 'Z' || is_vowel(c)) continue;
    const Place place = word.place(i);
    const Rule* rule = kIndex.first[c - 'A'];
    while (!rule->applies(place)) ++rule;
    for (std::size_t k = 0; k < rule->code_size && n < room; ++k) out[n++] = rule->code[k];
  }
  if (n >= 3 && out[n - 1] == 'S') --n;
  return n;
}

}  // namespace vstring::text
