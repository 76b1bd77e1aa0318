#include "text/language/porter.h"

#include <cctype>

#include "charclass/class_table.h"
#include "text/language/rule_table.h"

namespace vstring::text {
namespace {

bool is_vowel(Byte c) { return charclass::is(c, charclass::kVowel); }

Byte lower(Byte c) {
  const bool is_capital =
      charclass::is(c, charclass::kUpper) && charclass::is(c, charclass::kAscii);
  return is_capital ? static_cast<Byte>(std::tolower(c)) : c;
}

struct SuffixRow {
  Letters suffix;
  Letters replacement;
  Letters preceded_by = {};  // when there are any, one of them must stand before the suffix
};

// clang-format off

// Step 2: (m > 0) for every row. The paper has "abli" > "able" for "bli", and no "logi".
constexpr SuffixRow kStep2[] = {
    {"ational", "ate"},   // relational -> relate
    {"tional",  "tion"},  // conditional -> condition
    {"enci",    "ence"},  // valenci -> valence
    {"anci",    "ance"},  // hesitanci -> hesitance
    {"izer",    "ize"},   // digitizer -> digitize
    {"logi",    "log"},   // analogi -> analog
    {"bli",     "ble"},   // conformabli -> conformable
    {"alli",    "al"},    // radicalli -> radical
    {"entli",   "ent"},   // differentli -> different
    {"eli",     "e"},     // vileli -> vile
    {"ousli",   "ous"},   // analogousli -> analogous
    {"ization", "ize"},   // vietnamization -> vietnamize
    {"ation",   "ate"},   // predication -> predicate
    {"ator",    "ate"},   // operator -> operate
    {"alism",   "al"},    // feudalism -> feudal
    {"iveness", "ive"},   // decisiveness -> decisive
    {"fulness", "ful"},   // hopefulness -> hopeful
    {"ousness", "ous"},   // callousness -> callous
    {"aliti",   "al"},    // formaliti -> formal
    {"iviti",   "ive"},   // sensitiviti -> sensitive
    {"biliti",  "ble"},   // sensibiliti -> sensible
};

// Step 3: (m > 0) for every row.
constexpr SuffixRow kStep3[] = {
    {"icate", "ic"},  // triplicate -> triplic
    {"ative", ""},    // formative -> form
    {"alize", "al"},  // formalize -> formal
    {"iciti", "ic"},  // electriciti -> electric
    {"ical",  "ic"},  // electrical -> electric
    {"ful",   ""},    // hopeful -> hope
    {"ness",  ""},    // goodness -> good
};

// Step 4: (m > 1) for every row.
constexpr SuffixRow kStep4[] = {
    {"al",    ""},        // revival -> reviv
    {"ance",  ""},        // allowance -> allow
    {"ence",  ""},        // inference -> infer
    {"er",    ""},        // airliner -> airlin
    {"ic",    ""},        // gyroscopic -> gyroscop
    {"able",  ""},        // adjustable -> adjust
    {"ible",  ""},        // defensible -> defens
    {"ant",   ""},        // irritant -> irrit
    {"ement", ""},        // replacement -> replac
    {"ment",  ""},        // adjustment -> adjust
    {"ent",   ""},        // dependent -> depend
    {"ion",   "", "st"},  // adoption -> adopt
    {"ou",    ""},        // homologou -> homolog
    {"ism",   ""},        // communism -> commun
    {"ate",   ""},        // activate -> activ
    {"iti",   ""},        // angulariti -> angular
    {"ous",   ""},        // homologous -> homolog
    {"ive",   ""},        // effective -> effect
    {"ize",   ""},        // bowdlerize -> bowdler
};

// clang-format on

// Steps 2 and 4 are entered by the last letter but one, step 3 by the last, so that a word meets
// only a few suffixes.
consteval Byte last(const SuffixRow& row) { return row.suffix.last(); }
consteval Byte last_but_one(const SuffixRow& row) {
  if (row.suffix.size < 2) malformed_row();
  return row.suffix.bytes[row.suffix.size - 2];
}

constexpr RowsByLetter kStep2Index = RowsByLetter::of(
    kStep2, [](const SuffixRow& row) consteval { return last_but_one(row); });
constexpr RowsByLetter kStep3Index = RowsByLetter::of(
    kStep3, [](const SuffixRow& row) consteval { return last(row); });
constexpr RowsByLetter kStep4Index = RowsByLetter::of(
    kStep4, [](const SuffixRow& row) consteval { return last_but_one(row); });

// b[0..k] is the word so far, and after a successful ends(), b[0..j] is what stands before the
// suffix. No rule makes a word longer.
struct Stemmer {
  Byte* b;
  std::int32_t k;
  std::int32_t j;

  // The letter at `i`; none of any rule's letters before the start of the word.
  Byte at(std::int32_t i) const { return i < 0 ? Byte{0} : b[i]; }

  // A y is a vowel after a consonant, so whether b[i] is one hangs on the letters before it.
  bool consonant(std::int32_t i, bool after_consonant) const {
    if (is_vowel(b[i])) return false;
    return b[i] != 'y' || i == 0 || !after_consonant;
  }

  bool consonant(std::int32_t i) const {
    std::int32_t first = i;  // of the run of letters whose kind depends on the one before
    while (first > 0 && b[first] == 'y' && !is_vowel('y')) --first;
    bool result = consonant(first, false);
    while (first < i) result = consonant(++first, result);
    return result;
  }

  // The number of vowel runs followed by a consonant in b[0..j].
  int m() const {
    int count = 0;
    bool after_consonant = true;
    for (std::int32_t i = 0; i <= j; ++i) {
      const bool is_consonant = consonant(i, after_consonant);
      if (is_consonant && !after_consonant) ++count;
      after_consonant = is_consonant;
    }
    return count;
  }

  bool vowel_in_stem() const {
    for (std::int32_t i = 0; i <= j; ++i) {
      if (!consonant(i, true)) return true;  // the letters before i are consonants
    }
    return false;
  }

  bool double_consonant(std::int32_t i) const { return i >= 1 && b[i] == b[i - 1] && consonant(i); }

  // Consonant, vowel, consonant, the last not w, x or y: hop(e), but not snow, box, tray.
  bool cvc(std::int32_t i) const {
    if (i < 2 || !consonant(i) || consonant(i - 1) || !consonant(i - 2)) return false;
    return b[i] != 'w' && b[i] != 'x' && b[i] != 'y';
  }

  bool ends(const Letters& s) {
    if (s.size > k + 1 || s.last() != b[k] || !s.end_at(b + k + 1)) return false;
    j = k - s.size;
    return true;
  }

  void set_to(const Letters& s) {
    std::memcpy(b + j + 1, s.bytes, s.size);
    k = j + s.size;
  }

  // The first row whose suffix ends the word is the only one to be considered.
  const SuffixRow* first_ending(std::span<const SuffixRow> rows) {
    for (const SuffixRow& row : rows) {
      if (ends(row.suffix) && (row.preceded_by.size == 0 || row.preceded_by.has(at(j)))) {
        return &row;
      }
    }
    return nullptr;
  }

  void replace(std::span<const SuffixRow> rows, int measure_above) {
    const SuffixRow* const row = first_ending(rows);
    if (row != nullptr && m() > measure_above) set_to(row->replacement);
  }

  // Plurals and past participles.
  void step1ab() {
    if (b[k] == 's') {
      if (ends("sses")) {  // caresses -> caress
        k -= 2;
      } else if (ends("ies")) {  // ponies -> poni
        set_to("i");
      } else if (b[k - 1] != 's') {  // cats -> cat
        --k;
      }
    }
    if (ends("eed")) {  // agreed -> agree, but feed
      if (m() > 0) --k;
    } else if ((ends("ed") || ends("ing")) && vowel_in_stem()) {  // plastered -> plaster, but bled
      k = j;
      restore_after_participle();
    }
  }

  void restore_after_participle() {
    if (ends("at")) {  // conflat(ed) -> conflate
      set_to("ate");
    } else if (ends("bl")) {  // troubl(ed) -> trouble
      set_to("ble");
    } else if (ends("iz")) {  // siz(ed) -> size
      set_to("ize");
    } else if (double_consonant(k)) {  // hopp(ing) -> hop, but fall, hiss, fizz
      if (b[k] != 'l' && b[k] != 's' && b[k] != 'z') --k;
    } else if (m() == 1 && cvc(k)) {  // fil(ing) -> file
      set_to("e");
    }
  }

  void step1c() {  // happy -> happi, but sky
    if (ends("y") && vowel_in_stem()) b[k] = 'i';
  }

  void step2() { replace(kStep2Index.select(kStep2, at(k - 1)), 0); }
  void step3() { replace(kStep3Index.select(kStep3, b[k]), 0); }
  void step4() { replace(kStep4Index.select(kStep4, at(k - 1)), 1); }

  void step5() {
    j = k;
    if (b[k] == 'e') {  // probate -> probat, cease -> ceas, but rate
      const int a = m();
      if (a > 1 || (a == 1 && !cvc(k - 1))) --k;
    }
    // The measure is that of the word with its e, which makes no difference to it.
    if (b[k] == 'l' && double_consonant(k) && m() > 1) --k;  // controll -> control, but roll
  }
};

}  // namespace

std::size_t porter(Bytes word, MutableBytes out) {
  if (word.size() < 2) {
    copy_into(out, word);
    return word.size();
  }
  for (std::size_t i = 0; i < word.size(); ++i) out[i] = lower(word[i]);
  if (word.size() == 2) return 2;
  Stemmer stemmer{out.data(), static_cast<std::int32_t>(word.size()) - 1, 0};
  stemmer.step1ab();
  stemmer.step1c();
  stemmer.step2();
  stemmer.step3();
  stemmer.step4();
  stemmer.step5();
  return static_cast<std::size_t>(stemmer.k) + 1;
}

}  // namespace vstring::text
