#include "text/language/lancaster.h"

#include <iterator>

#include "text/language/rule_table.h"

namespace vstring::text {
namespace {

struct Rule {
  Letters ending;
  bool intact = false;  // applies only to a word that no rule has changed yet
  std::uint8_t remove = 0;
  Letters append;
  bool stop = false;

  // The article's notation: the ending from its last letter to its first, * if the rule is for
  // intact words, the number of letters to remove, the letters to append, then > to go on or . to
  // stop.
  consteval Rule(const char* code) {  // NOLINT: rows are written as plain literals
    const char* end = code;
    while (*end >= 'a' && *end <= 'z') ++end;
    for (const char* p = end; p != code; --p) ending.append(p[-1]);
    intact = *end == '*';
    if (intact) ++end;
    if (*end < '0' || *end > '0' + ending.size) malformed_row();
    remove = static_cast<std::uint8_t>(*end++ - '0');
    while (*end >= 'a' && *end <= 'z') append.append(*end++);
    stop = *end == '.';
    // A word must not grow, so that it fits where the original one did.
    const bool ends_well = (stop || *end == '>') && end[1] == '\0';
    if (ending.size == 0 || append.size > remove || !ends_well) malformed_row();
  }
};

// The article's table, in its order. What a rule does to the ending stands beside it: as the rule
// for -misj removes one letter alone, it leaves -mist.
// clang-format off
constexpr Rule kRules[] = {
    "ai*2.",       // -ia > - if intact
    "a*1.",        // -a > - if intact

    "bb1.",        // -bb > -b

    "city3s.",     // -ytic > -ys
    "ci2>",        // -ic > -
    "cn1t>",       // -nc > -nt

    "dd1.",        // -dd > -d
    "dei3y>",      // -ied > -y
    "deec2ss.",    // -ceed > -cess
    "dee1.",       // -eed > -ee
    "de2>",        // -ed > -
    "dooh4>",      // -hood > -

    "e1>",         // -e > -

    "feil1v.",     // -lief > -liev
    "fi2>",        // -if > -

    "gni3>",       // -ing > -
    "gai3y.",      // -iag > -y
    "ga2>",        // -ag > -
    "gg1.",        // -gg > -g

    "ht*2.",       // -th > - if intact
    "hsiug5ct.",   // -guish > -ct
    "hsi3>",       // -ish > -

    "i*1.",        // -i > - if intact
    "i1y>",        // -i > -y

    "ji1d.",       // -ij > -id
    "juf1s.",      // -fuj > -fus
    "ju1d.",       // -uj > -ud
    "jo1d.",       // -oj > -od
    "jeh1r.",      // -hej > -her
    "jrev1t.",     // -verj > -vert
    "jsim1t.",     // -misj > -mist
    "jn1d.",       // -nj > -nd
    "j1s.",        // -j > -s

    "lbaifi6.",    // -ifiabl > -
    "lbai4y.",     // -iabl > -y
    "lba3>",       // -abl > -
    "lbi3.",       // -ibl > -
    "lib2l>",      // -bil > -bl
    "lc1.",        // -cl > -c
    "lufi4y.",     // -iful > -y
    "luf3>",       // -ful > -
    "lu2.",        // -ul > -
    "lai3>",       // -ial > -
    "lau3>",       // -ual > -
    "la2>",        // -al > -
    "ll1.",        // -ll > -l

    "mui3.",       // -ium > -
    "mu*2.",       // -um > - if intact
    "msi3>",       // -ism > -
    "mm1.",        // -mm > -m

    "nois4j>",     // -sion > -j
    "noix4ct.",    // -xion > -ct
    "noi3>",       // -ion > -
    "nai3>",       // -ian > -
    "na2>",        // -an > -
    "nee0.",       // -een > -een
    "ne2>",        // -en > -
    "nn1.",        // -nn > -n

    "pihs4>",      // -ship > -
    "pp1.",        // -pp > -p

    "re2>",        // -er > -
    "rae0.",       // -ear > -ear
    "ra2.",        // -ar > -
    "ro2>",        // -or > -
    "ru2>",        // -ur > -
    "rr1.",        // -rr > -r
    "rt1>",        // -tr > -t
    "rei3y>",      // -ier > -y

    "sei3y>",      // -ies > -y
    "sis2.",       // -sis > -s
    "si2>",        // -is > -
    "ssen4>",      // -ness > -
    "ss0.",        // -ss > -ss
    "suo3>",       // -ous > -
    "su*2.",       // -us > - if intact
    "s*1>",        // -s > - if intact
    "s0.",         // -s > -s

    "tacilp4y.",   // -plicat > -ply
    "ta2>",        // -at > -
    "tnem4>",      // -ment > -
    "tne3>",       // -ent > -
    "tna3>",       // -ant > -
    "tpir2b.",     // -ript > -rib
    "tpro2b.",     // -orpt > -orb
    "tcud1.",      // -duct > -duc
    "tpmus2.",     // -sumpt > -sum
    "tpec2iv.",    // -cept > -ceiv
    "tulo2v.",     // -olut > -olv
    "tsis0.",      // -sist > -sist
    "tsi3>",       // -ist > -
    "tt1.",        // -tt > -t

    "uqi3.",       // -iqu > -
    "ugo1.",       // -ogu > -og

    "vis3j>",      // -siv > -j
    "vie0.",       // -eiv > -eiv
    "vi2>",        // -iv > -

    "ylb1>",       // -bly > -bl
    "yli3y>",      // -ily > -y
    "ylp0.",       // -ply > -ply
    "yl2>",        // -ly > -
    "ygo1.",       // -ogy > -og
    "yhp1.",       // -phy > -ph
    "ymo1.",       // -omy > -om
    "ypo1.",       // -opy > -op
    "yti3>",       // -ity > -
    "yte3>",       // -ety > -
    "ytl2.",       // -lty > -l
    "yrtsi5.",     // -istry > -
    "yra3>",       // -ary > -
    "yro3>",       // -ory > -
    "yfi3.",       // -ify > -
    "ycn2t>",      // -ncy > -nt
    "yca3>",       // -acy > -

    "zi2>",        // -iz > -
    "zy1s.",       // -yz > -ys
};
// clang-format on
static_assert(std::size(kRules) == 115);

constexpr RowsByLetter kIndex = RowsByLetter::of(
    kRules, [](const Rule& rule) consteval { return rule.ending.last(); });

bool is_vowel(Byte c) { return c == 'a' || c == 'e' || c == 'i' || c == 'o' || c == 'u'; }
bool is_capital(Byte c) { return c >= 'A' && c <= 'Z'; }
bool is_letter(Byte c) { return is_capital(c) || (c >= 'a' && c <= 'z'); }

bool is_acceptable(Bytes word) {
  if (word.size() >= 2 && is_vowel(word[0])) return true;
  if (word.size() < 3) return false;
  for (const Byte c : word) {
    if (is_vowel(c) || c == 'y') return true;
  }
  return false;
}

// The word while it is rewritten in place. Before a rule is known to leave an acceptable word, the
// letters that it appends are written over those that it removes, and put back if it does not.
class Word {
 public:
  Word(MutableBytes letters) : letters_(letters), size_(letters.size()) {}

  Bytes view() const { return letters_.first(size_); }

  // Applies the first acceptable rule for the last letter; null when there is none.
  const Rule* rewrite() {
    if (size_ == 0) return nullptr;
    for (const Rule& rule : kIndex.select(kRules, letters_[size_ - 1])) {
      if (is_candidate(rule) && apply(rule)) return &rule;
    }
    return nullptr;
  }

 private:
  bool is_candidate(const Rule& rule) const {
    return size_ >= rule.ending.size && !(rule.intact && changed_) &&
           rule.ending.end_at(letters_.data() + size_);
  }

  bool apply(const Rule& rule) {
    const std::size_t kept = size_ - rule.remove;
    Byte* const tail = letters_.data() + kept;
    Letters removed;
    std::memcpy(removed.bytes, tail, rule.append.size);
    std::memcpy(tail, rule.append.bytes, rule.append.size);
    const std::size_t size = kept + rule.append.size;
    if (!is_acceptable(letters_.first(size))) {
      std::memcpy(tail, removed.bytes, rule.append.size);
      return false;
    }
    size_ = size;
    changed_ = true;
    return true;
  }

  const MutableBytes letters_;
  std::size_t size_;
  bool changed_ = false;
};

}  // namespace

Result<std::size_t> lancaster(Bytes word, MutableBytes out, const LancasterTrace* trace) {
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (!is_letter(word[i])) return Status::refused;
    out[i] = static_cast<Byte>(is_capital(word[i]) ? word[i] - 'A' + 'a' : word[i]);
  }
  if (trace != nullptr) trace->word(word);
  Word stem(out.first(word.size()));
  while (const Rule* const rule = stem.rewrite()) {
    if (trace != nullptr) trace->rule(rule->ending.view(), rule->append.view());
    if (rule->stop) break;
  }
  if (trace != nullptr) trace->stem(stem.view());
  return stem.view().size();
}

}  // namespace vstring::text
