// Soundex, Metaphone, syllables.
#include <gtest/gtest.h>

#include <string>

#include "host/vstring.h"
#include "support/check.h"

namespace vstring_test {
namespace {

void check_keys(const std::string& command,
                std::initializer_list<std::pair<std::string, std::string>> pairs) {
  std::vector<Row> rows;
  for (const auto& [from, to] : pairs) {
    rows.push_back({command + "(" + quoted(from) + ")", quoted(to)});
  }
  Check(rows);
}

TEST(Soundex, KeysAndRefusals) {
  check_keys("soundex", {{"Robert", "R163"},
                         {"Rupert", "R163"},
                         {"Tymczak", "T522"},
                         {"Pfister", "P236"},
                         {"Ashcraft", "A226"},
                         {"Lee", "L000"},
                         {"", "Z000"},
                         {"12-3", "Z000"},
                         {"b-b", "B000"},
                         {"bab", "B100"},
                         {"bhb", "B100"},
                         {"\xe9t", "T000"},
                         {"bdlmnr", "B345"},
                         {"aeiou", "A000"}});
  Check({
      {"soundex(`o'hara`, 7)", "\"O600\""},
      {"soundex()", "error: expecting one argument, but got 0"},
      {"soundex(1)", "error: argument must be a string"},
  });
}

// A row for every row of the contexts.
TEST(Metaphone, Contexts) {
  check_keys("metaphone", {{"", ""},
                           {"-1", ""},
                           {"X", ""},
                           {"S", ""},
                           {"WH", ""},
                           {"AARD", "ART"},
                           {"Knuth", "N0"},
                           {"gnome", "NM"},
                           {"pneumonia", "NMN"},
                           {"aeon", "EN"},
                           {"wrack", "RK"},
                           {"xenon", "SNN"},
                           {"whale", "WL"},
                           {"dumb", "TM"},
                           {"dumbo", "TMB"},
                           {"ascent", "ASNT"},
                           {"scene", "SSN"},
                           {"special", "SPXL"},
                           {"city", "ST"},
                           {"discharge", "TSKRJ"},
                           {"chrome", "KRM"},
                           {"church", "XRX"},
                           {"accord", "ACRT"},
                           {"accede", "AST"},
                           {"cat", "KT"},
                           {"edge", "EJ"},
                           {"dot", "TT"},
                           {"night", "NT"},
                           {"signed", "SNT"},
                           {"sign", "SN"},
                           {"signal", "SKNL"},
                           {"gem", "JM"},
                           {"agger", "AKR"},
                           {"cough", "KK"},
                           {"phone", "FN"},
                           {"ah", "A"},
                           {"aha", "AH"},
                           {"hat", "HT"},
                           {"back", "BK"},
                           {"quit", "KT"},
                           {"ship", "XP"},
                           {"vision", "FXN"},
                           {"sian", "SN"},
                           {"nation", "NXN"},
                           {"thrice", "TR"},
                           {"thing", "0NK"},
                           {"hatchet", "HXT"},
                           {"match", "MTX"},
                           {"wet", "WT"},
                           {"draw", "TR"},
                           {"box", "BK"},
                           {"boxs", "BK"},
                           {"yet", "YT"},
                           {"day", "T"},
                           {"zoo", "S"},
                           {"mass", "MS"},
                           {"masses", "MS"},
                           {"b b", "B"},
                           {"e\xe9t", "ET"}});
  Check({
      {"metaphone(`Thumb`, 7)", "\"0M\""},
      {"metaphone()", "error: expecting one argument, but got 0"},
      {"metaphone(1)", "error: first argument must be a string"},
  });
}

// A key of 8190 bytes is full: the code of a letter is cut there, and letters after the first
// 8191 never count.
TEST(Metaphone, Limits) {
  const auto call = [](const std::string& text) { return "metaphone(" + quoted(text) + ")"; };
  std::string text;
  while (text.size() < 8190) text += "bd";
  std::string key;
  while (key.size() < 8190) key += "BT";
  Check({{call(text + "bbb"), vstring_test::quoted(key)},
         {call(text + "k"), vstring_test::quoted(key)}});
  text.clear();
  key.clear();
  while (key.size() < 8190) {
    text += "xa";
    key += "KS";
  }
  // The first x is an s, so the last one is cut after its k.
  Check({Row{call(text + text), quoted(("S" + key).substr(0, 8190))}});
}

TEST(Syllables, CountsAndRefusals) {
  const std::string long_word(1024, 'a');
  const auto call = [](const std::string& text) { return "syllen(" + quoted(text) + ")"; };
  Check({
      {"syllen(\"\")", "0"},
      {"syllen(\"b\")", "1"},
      {"syllen(\"y\")", "1"},
      {"syllen(\"table\")", "1"},
      {"syllen(\"hello\")", "1"},
      {"syllen(\"banana\")", "2"},
      {"syllen(\"HAPPY\")", "2"},
      {"syllen(\"day\")", "1"},
      {"syllen(\"daY\")", "1"},
      {"syllen(\"rhythm\")", "1"},
      {"syllen(`yellow`)", "2"},
      {call(long_word), "1"},
      {call(long_word + "b"), "error: word is too long"},
      {call(long_word + "-"), "error: word is too long"},
      {call("-" + long_word + "b"), "error: word must consist entirely of alphabetic characters"},
      {"syllen(\"a b\")", "error: word must consist entirely of alphabetic characters"},
      {"syllen(\"\\351\")", "error: word must consist entirely of alphabetic characters"},
      {"syllen()", "error: expecting one argument, but got 0"},
      {"syllen(1)", "error: first argument must be a string"},
  });
}

// A host may call any byte a letter; those beyond A to Z index no table.
TEST(Letters, OfAHostsOwnClassTable) {
  const std::uint32_t kept = cclbm[0xe9];
  cclbm[0xe9] = cclbm[int{'a'}];
  CheckInOrder({
      {"soundex(\"b\\351b\")", "\"B100\""},
      {"soundex(\"\\351bc\")",
       "\"\\35112"
       "0\""},
      {"metaphone(\"c\\351t\")", "\"KT\""},
      {"metaphone(\"\\351\\351\")", "\"\""},
      {"syllen(\"a\\351\")", "1"},
      {"prestem(\"un\\351\\351\")", "\"\\351\\351\""},
  });
  cclbm[0xe9] = kept;
}

}  // namespace
}  // namespace vstring_test
