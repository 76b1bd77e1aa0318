// Soundex, Metaphone, syllables.
#include <gtest/gtest.h>

#include <string>

#include "host/vstring.h"
#include "support/check.h"

namespace vstring_test {
namespace {

TEST(Soundex, KeysAndRefusals) {
  CheckWords("soundex",
             "Robert/R163 Rupert/R163 Tymczak/T522 Pfister/P236 Ashcraft/A226 Lee/L000 /Z000 "
             "12-3/Z000 b-b/B000 bab/B100 bhb/B100 bdlmnr/B345 aeiou/A000 \351t/T000");
  Check({{"soundex(`o'hara`, 7)", R"("O600")"}});
}

// A row for every row of the contexts.
TEST(Metaphone, Contexts) {
  CheckWords(
      "metaphone",
      "/ -1/ X/ S/ WH/ AARD/ART Knuth/N0 gnome/NM pneumonia/NMN aeon/EN wrack/RK xenon/SNN "
      "whale/WL dumb/TM dumbo/TMB ascent/ASNT scene/SSN special/SPXL city/ST discharge/TSKRJ "
      "chrome/KRM church/XRX accord/ACRT accede/AST cat/KT edge/EJ dot/TT night/NT signed/SNT "
      "sign/SN signal/SKNL gem/JM agger/AKR cough/KK phone/FN ah/A aha/AH hat/HT back/BK "
      "quit/KT ship/XP vision/FXN sian/SN nation/NXN thrice/TR thing/0NK hatchet/HXT match/MTX "
      "wet/WT draw/TR box/BK boxs/BK yet/YT day/T zoo/S mass/MS masses/MS e\351t/ET");
  Check({{R"(metaphone(`Thumb`, 7), metaphone("b b"))", R"("0M", "B")"}});
}

// A key of 8190 bytes is full: the code of a letter is cut there, and letters after the first
// 8191 never count.
TEST(Metaphone, Limits) {
  const auto call = [](const std::string& text) { return "metaphone(" + quoted(text) + ")"; };
  std::string text, key;
  for (; key.size() < 8190; key += "BT") text += "bd";
  Check({{call(text + "bbb"), vstring_test::quoted(key)},
         {call(text + "k"), vstring_test::quoted(key)}});
  for (text.clear(), key.clear(); key.size() < 8190; key += "KS") text += "xa";
  // The first x is an s, so the last one is cut after its k.
  Check({Row{call(text + text), quoted(("S" + key).substr(0, 8190))}});
}

TEST(Syllables, CountsAndRefusals) {
  const std::string long_word(1024, 'a');
  const auto call = [](const std::string& text) { return "syllen(" + quoted(text) + ")"; };
  Check({
      {R"(syllen(""), syllen("b"), syllen("y"), syllen("table"))", "0, 1, 1, 1"},
      {R"(syllen("hello"), syllen("banana"), syllen("HAPPY"), syllen("day"))", "1, 2, 2, 1"},
      {R"(syllen("daY"), syllen("rhythm"), syllen(`yellow`))", "1, 1, 2"},
      {call(long_word), "1"},
      {call(long_word + "b"), "error: word is too long"},
      {call(long_word + "-"), "error: word is too long"},
      {call("-" + long_word + "b"), "error: word must consist entirely of alphabetic characters"},
  });
}

// A host may call any byte a letter; those beyond A to Z index no table.
TEST(Letters, OfAHostsOwnClassTable) {
  const std::uint32_t kept = cclbm[0xe9];
  cclbm[0xe9] = cclbm[int{'a'}];
  CheckInOrder({
      {R"(soundex("b\351b"), soundex("\351bc"))", R"("B100", "\351120")"},
      {R"(metaphone("c\351t"), metaphone("\351\351"))", R"("KT", "")"},
      {R"(syllen("a\351"), prestem("un\351\351"))", R"(1, "\351\351")"},
      {R"(porter("c\351ming"))", R"("c\351me")"},
  });
  cclbm[0xe9] = kept;
}

}  // namespace
}  // namespace vstring_test
