// Words, sentences, n-grams, readability; and NYSIIS keys.
#include <gtest/gtest.h>

#include "support/check.h"

namespace vstring_test {
namespace {

TEST(Extraction, Words) {
  Check({
      {R"(words("It's 3 o'clock, \"Bob\"!"), words("'tis rock''n"), words(" ,. "), words(""))",
       R"(["It's", "3", "o'clock", "Bob"], ["tis", "rock", "n"], [], [])"},
      {R"(words("na\303\257ve \342\200\234ok\342\200\235 l\342\200\231eau"))",
       R"(["na\303\257ve", "ok", "l\342\200\231eau"])"},
      {R"(words("well-known x_y"), words("1\302\240kg"), words(`caf\351 don't`))",
       R"(["well", "known", "x", "y"], ["1", "kg"], ["caf\351", "don't"])"},
      {R"(words("a'\342\200\231b \302\252\302\265\302\272 \342\201\277x\342\202\254"))",
       R"(["a", "b", "\302\252\302\265\302\272", "x\342\202\254"])"},
      {R"(words("a'\302\240b'\342 \302 a\342\200"))", R"(["a", "b'\342", "\302", "a\342\200"])"},
  });
}

TEST(Extraction, Sentences) {
  Check({
      {R"(sentences("Dr. Smith came. He sat down! Why?"), sentences("He said \"No.\" Then left."))",
       R"(["Dr. Smith came.", "He sat down!", "Why?"], ["He said \"No.\"", "Then left."])"},
      {R"(sentences("J. S. Bach wrote, e.g. fugues... and more. "), sentences("3.14 is pi."))",
       R"(["J. S. Bach wrote, e.g. fugues... and more."], ["3.14 is pi."])"},
      {R"(sentences("Title\n\nText."), sentences("a\n \nb\nc"), sentences(" \n"), sentences(""))",
       R"(["Title", "Text."], ["a", "b\nc"], [], [])"},
      {R"(sentences("A. B.. C") , sentences("U.S. Army"), sentences("MESSRS. X xmr. Y Xmessrs. Z"))",
       R"(["A. B..", "C"], ["U.S.", "Army"], ["MESSRS. X xmr.", "Y Xmessrs.", "Z"])"},
      {R"(sentences("{So!?} 1.)\342\200\231\342\200\235 Z \200\231 A"), sentences(`. "Q" a. b`))",
       R"(["{So!?}", "1.)\342\200\231\342\200\235", "Z \200\231 A"], [".", "\"Q\" a. b"])"},
  });
}

TEST(Extraction, Ngrams) {
  Check({
      {R"(ngrams("abcd", 2), ngrams(["to", be, "so"], 2), ngrams("ab", 3), ngrams([], 1))",
       R"(["ab", "bc", "cd"], ["to be", "be so"], [], [])"},
      {R"(ngrams(ab, 2), ngrams([a, "", "b"], 1), ngrams(["", "", "c"], 3), ngrams("", 1))",
       R"(["ab"], ["a", "", "b"], ["  c"], [])"},
      {R"(ngrams(repeat("a", 65536), 32768))", "error: result would be too long"},
  });
  CheckRefusals({
      {"first argument must be a string or a list of strings",
       R"(ngrams({"a"}, 0); ngrams(["a", 7], 1); ngrams(7, x))"},
      {"second argument must be positive", R"(ngrams("ab", 0); ngrams([], -1))"},
      {"second argument must be a 32-bit integer", R"(ngrams("ab", "1"); ngrams([], 2147483648))"},
  });
}

TEST(Extraction, Readability) {
  Check({
      {R"(readability("The cat sat on the mat."), readability("The cat sat on the mat.", grade))",
       "116.14500000000001, -1.4499999999999993"},
      {R"(readability("table"), readability("..."), readability("", "ease"))",
       "36.62000000000003, FAIL, FAIL"},
      // One syllable each: a silent e, no letters at all, nothing but an e.
      {R"(readability("Here 42 e le", grade), readability("rhythm eye", grade))",
       "-2.2299999999999986, -3.01"},
      {R"(readability("a", "fog"))", R"(error: unrecognised measure `"fog"')"},
  });
}

TEST(Phonetic, Nysiis) {
  CheckWords("nysiis",
             "MACINTOSH/MCANT Knuth/NAT O'Brien/OBRAN Phillipson/FALAPSAN Lee/LY Schmidt/SNAD "
             "Evans/EVAN 42/ S/S A/A AY/Y EE/Y sas/S Kay/CY Pfister/FASTAR Hawh/H Dutt/DAT "
             "Eckhardt/ECARD Wheeze/WAS caf\351s/CAF");
  Check({{"nysiis(\"\"), length(nysiis(repeat(\"ab\", 5000)))", R"("", 10000)"}});
}

}  // namespace
}  // namespace vstring_test
