// The stemmers and their dispatcher.
#include <gtest/gtest.h>

#include <string>

#include "support/check.h"

namespace vstring_test {
namespace {

const std::string kTooLong = "error: word is too long";

std::string word(std::size_t n, char c = 'a') { return quoted(std::string(n, c)); }

TEST(Porter, EveryStep) {
  CheckWords(
      "porter",
      "caresses/caress ponies/poni ties/ti cats/cat feed/feed agreed/agre plastered/plaster "
      "bled/bled sing/sing conflated/conflat troubled/troubl sized/size hopping/hop "
      "falling/fall hissing/hiss fizzed/fizz filing/file failing/fail happy/happi sky/sky "
      "relational/relat conditional/condit rational/ration valenci/valenc digitizer/digit "
      "analogies/analog possibly/possibl vileli/vile operator/oper callousness/callous "
      "sensibiliti/sensibl triplicate/triplic formative/form electriciti/electr hopeful/hope "
      "goodness/good replacement/replac adoption/adopt onion/onion homologou/homolog "
      "communism/commun probate/probat rate/rate cease/ceas controll/control roll/roll");
}

// Words so short that a rule would look before their start, runs of y, and bytes that are no
// letters.
TEST(Porter, Edges) {
  CheckWords("porter",
             "/ A/A y/y AB/ab ies/i aed/a ion/ion ing/ing eed/eed sss/sss yyy/yyi syzygy/syzygi "
             "FLIES/fli a1ed/a1 e-s/e- \304ED/\304ed");
  Check({
      {"porter(`x`), porter(`Dogs`, 7)", R"("x", "dog")"},
      {"length(porter(" + word(127, 'y') + ")), length(porter(" + word(127, 's') + "))",
       "127, 127"},
      {"porter(" + word(128) + ")", kTooLong},
  });
}

TEST(Lancaster, Values) {
  CheckWords(
      "lancaster",
      "maximum/maxim multiply/multiply provision/provid owed/ow ear/ear saying/say crying/cry "
      "string/string meant/meant cement/cem Maximum/maxim / s/s as/as ia/ia misj/mist anc/ant "
      "churches/church guish/guish distinguish/distinct analytic/analys");
  Check({
      {"lancaster(" + word(255, 'l') + ")", quoted(std::string(255, 'l'))},
      {"lancaster(" + word(256, '1') + ")", kTooLong},
  });
}

std::string trace_of(const std::string& call) {
  testing::internal::CaptureStderr();
  evaluate(call);
  return testing::internal::GetCapturedStderr();
}

// The trace is switched even by a call that fails afterwards, and stays.
TEST(Lancaster, Trace) {
  EXPECT_EQ("", trace_of("lancaster(\"maximum\")"));
  EXPECT_EQ("", trace_of("stem(\"a\", 7, trace_rules)"));
  EXPECT_EQ("Meanings  [\"s\" -> \"\"][\"ing\" -> \"\"] mean\n",
            trace_of("lancaster(\"Meanings\")"));
  EXPECT_EQ("been  [\"een\" -> \"\"] been\n", trace_of("stem(\"been\", \"Paice\", 5)"));
  EXPECT_EQ("provision  [\"sion\" -> \"j\"][\"ij\" -> \"d\"] provid\n",
            trace_of("stem(\"provision\", stemmer = LANCASTER, \"trace_rules\", 1)"));
  EXPECT_EQ("   \n", trace_of("lancaster(\"\")"));
  EXPECT_EQ("", trace_of("lancaster(\"x1\")"));
  EXPECT_EQ("", trace_of("porter(\"maximum\")"));
  EXPECT_EQ("", trace_of("stem(1, paice, no_trace_rules)"));
  EXPECT_NE("", trace_of("lancaster(\"maximum\")"));
  EXPECT_EQ("", trace_of("stem(\"maximum\", paice, `no_trace_rules`)"));
}

TEST(PluralStemmer, Values) {
  CheckWords("pstem",
             "ponies/pony PONIES/PONY shoes/shoe cats/cat CATS/CAT has/has Has/Has gas/gas "
             "analyses/analy boxes/box pies/pi ties/ti aaies/aai aeies/aei movies/movy bus/bus "
             "virus/virus glass/glass glasses/glass toes/toe trees/tree reaes/reae /");
  Check({
      {R"(pstem(`dogs`), pstem("1 23s"))", R"("dog", "1 23")"},
      {"length(pstem(" + word(255, 's') + "))", "255"},
      {"pstem(" + word(256) + ")", kTooLong},
  });
}

TEST(PrefixStemmer, Values) {
  CheckWords(
      "prestem",
      "kilogram/gram unicycle/icycle pre/pre predispose/pose decade/cade disable/able "
      "anti/anti anti-war/anti-war Unfair/Unfair post1/post1 undo/do isotope/tope ununun/un /");
  Check({{"prestem(" + word(256) + ")", kTooLong}});
}

TEST(Stem, Dispatch) {
  Check({
      {R"(stem("ponies"), stem("ponies", stemmer = porter), stem("ponies", "stemmer" = "PLURAL"))",
       R"("poni", "poni", "pony")"},
      {R"(stem("ponies", plural), stem("ponies", Sbremba), stem("ponies", stemmer))",
       R"("pony", "pony", "pony")"},
      {R"(stem("kilograms", "Prefix"), stem("maximum", pAICE))", R"("grams", "maxim")"},
      {"stem(\"maximum\", stemmer = paic)", "error: unrecognised stemmer `paic'"},
      {"stem(\"maximum\", \"porters\")", "error: unrecognised stemmer `\"porters\"'"},
      {"stem(\"maximum\", \"\")", "error: unrecognised stemmer `\"\"'"},
      {"stem(\"maximum\", stemmer = 1)", "error: unrecognised option `stemmer = 1'"},
      {"stem(\"maximum\", method = porter)", "error: unrecognised option `method = porter'"},
      {"stem(\"maximum\", 12)", "error: unrecognised option `12'"},
  });
}

}  // namespace
}  // namespace vstring_test
