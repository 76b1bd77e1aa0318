// Alignments and nucleotide sequences.
#include <gtest/gtest.h>

#include <algorithm>

#include "bytes/cpu.h"
#include "support/check.h"
#include "support/direct.h"
#include "words/alignment_reference.h"
#include "words/sample_words.h"

namespace vstring_test {
namespace {

// The letters of a word in the columns, "-" where the column is `without`.
std::string row(const std::string& columns, const std::string& word, char without) {
  std::string letters;
  std::size_t i = 0;
  for (const char column : columns) letters += column == without ? '-' : word[i++];
  return letters;
}

std::string rows(const Alignment& best, const std::string& s, const std::string& t) {
  return printed(cigar(best.columns)) + ", " + printed(row(best.columns, s, 'I')) + ", " +
         printed(row(best.columns, t, 'D')) + "]";
}

Values arguments(const std::string& s, const std::string& t, const Scores& scores) {
  return {s, t, equation("match", scores.match), equation("mismatch", scores.mismatch),
          equation("gap", scores.gap)};
}

void check_pair(const std::string& s, const std::string& t, const std::vector<Scores>& several) {
  SCOPED_TRACE(s + ", " + t);
  ASSERT_EQ(printed(cigar(best_alignment(s, t, {0, -1, -1}).columns)), call(vstring_edits, {s, t}));
  std::string common = best_alignment(s, t, {1, kNever, 0}).columns;
  std::string letters;
  std::size_t i = 0;
  for (const char column : common) {
    if (column == '=') letters += s[i];
    i += column != 'I' ? 1 : 0;
  }
  ASSERT_EQ(printed(letters), call(vstring_lcs, {s, t}));
  for (const Scores& scores : several) {
    const Alignment best = best_alignment(s, t, scores);
    ASSERT_EQ("[" + std::to_string(best.score) + ", " + rows(best, s, t),
              call(vstring_align, arguments(s, t, scores)));
  }
}

// All pairs of factors, in the order in which they are to be preferred.
std::string best_factors(const std::string& s, const std::string& t, const Scores& scores) {
  std::string best = "[0, 0, 0, \"\", \"\", \"\"]";
  std::int64_t greatest = 0;
  for (std::size_t end_s = 0; end_s <= s.size(); ++end_s) {
    for (std::size_t end_t = 0; end_t <= t.size(); ++end_t) {
      for (std::size_t i = end_s + 1; i-- > 0;) {
        for (std::size_t j = end_t + 1; j-- > 0;) {
          const std::string u = s.substr(i, end_s - i);
          const std::string v = t.substr(j, end_t - j);
          const Alignment pair = best_alignment(u, v, scores);
          if (pair.score <= greatest) continue;
          greatest = pair.score;
          best = "[" + std::to_string(greatest) + ", " + std::to_string(i + 1) + ", " +
                 std::to_string(j + 1) + ", " + rows(pair, u, v);
        }
      }
    }
  }
  return best;
}

const std::vector<Scores> kScores = {{1, -1, -1}, {2, -3, -2}, {1, -1, 0},
                                     {0, 0, 0},   {-1, 2, -3}, {3, -2, 1}};

TEST(Alignment, AllShortPairsByDefinition) {
  const auto words = all_words("abc", long_tier() ? 5 : 4);
  for (const std::string& s : words) {
    for (const std::string& t : words) check_pair(s, t, {kScores[0], kScores[1], kScores[5]});
  }
  const auto shorter = all_words("ab", 3);
  for (const std::string& s : shorter) {
    for (const std::string& t : shorter) {
      for (const Scores& scores : kScores) {
        ASSERT_EQ(best_factors(s, t, scores), call(vstring_localalign, arguments(s, t, scores)))
            << s << ", " << t;
      }
    }
  }
}

// More rows than a machine word has bits, cut several times; close words, for which few diagonals
// are looked at, and others; by the kernel in vectors and by its plain twin.
TEST(Alignment, LongerWords) {
  unsigned seed = 0;
  for (const std::size_t n : {63U, 64U, 65U, 130U, 400U, 700U}) {
    const std::string s = random_word(n, 3, ++seed);
    std::string close = s;
    for (std::size_t i = 0; i < close.size(); i += 1 + n / 6) {
      if (i % 3 == 0) close.erase(i, 2);
      if (i % 3 == 1) close.insert(i, "b");
      if (i % 3 == 2) close[i] = 'c';
    }
    vstring::plain_kernels_only = n % 2 == 0;
    for (const std::string& t : {close, random_word(150, 3, ++seed), periodic_word("ab", n / 2)}) {
      check_pair(s, t, {kScores[1]});
      check_pair(t, s, {kScores[2]});
    }
  }
  vstring::plain_kernels_only = false;
}

TEST(Alignment, ValuesAndRefusals) {
  Check({
      {R"(edits("abc", abc), edits("", "ab"), edits("", ""), edits("aa", "a"), edits(ab, "ba"))",
       R"("3=", "2I", "", "1D1=", "1D1=1I")"},
      {R"(lcs("abc", ""), lcs("ab", "ba"))", R"("", "b")"},
      {R"(align("", ""), align(ab, "a", gap = -2), align("a", "b", mismatch = -5))",
       R"([0, "", "", ""], [-1, "1=1D", "ab", "a-"], [-2, "1D1I", "a-", "-b"])"},
      {R"(align("a", "a", "match" = 7, gap = 3, match = 1000))", R"([1000, "1=", "a", "a"])"},
      {R"(localalign("ab", "cd"), localalign("", "a", gap = 2))",
       R"([0, 0, 0, "", "", ""], [2, 1, 1, "1I", "-", "a"])"},
      {"edits(" + quoted(random_word(90, 3, 1)) + ", " + quoted(random_word(70, 3, 2)) + ")",
       quoted(cigar(
           best_alignment(random_word(90, 3, 1), random_word(70, 3, 2), {0, -1, -1}).columns))},
      {"length(lcs(repeat(\"ab\", 300), repeat(\"abc\", 200)))", "400"},
  });
  CheckRefusals({
      {"invalid option: gop = 1", R"(align("a", "b", gop = 1); align("a", "b", gap = 1, gop = 1))"},
      {"invalid option: 7", R"(align("a", "b", 7); localalign("a", "b", 7, gap = x))"},
      {"invalid option: 7 = 7", R"(align("a", "b", 7 = 7))"},
      {"the `gap' value must be an integer from -1000 to 1000, but received \"x\"",
       R"(align("a", "b", gap = "x"); localalign("a", "b", "gap" = "x", 7))"},
      {"the `match' value must be an integer from -1000 to 1000, but received 1001",
       R"(align("a", "b", match = 1001))"},
      {"the `mismatch' value must be an integer from -1000 to 1000, but received -99999999999",
       R"(align("a", "b", mismatch = -99999999999))"},
  });
}

TEST(Dna, ComplementsAndCodons) {
  std::string all;
  for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
  std::string complement = all;
  const std::string from = "ATUCGRYKMBVDHatucgrykmbvdh";
  const std::string to = "TAAGCYRMKVBHDtaagcyrmkvbhd";
  for (std::size_t i = 0; i < from.size(); ++i) {
    complement[static_cast<std::size_t>(from[i] - 1)] = to[i];
  }
  std::reverse(complement.begin(), complement.end());
  EXPECT_EQ(printed(complement), call(vstring_revcomp, {all}));

  // Every codon of ambiguous letters, by the codons that it stands for.
  const std::string bases = "TCAG";
  const std::string acids = "FFLLSSSSYY**CC*WLLLLPPPPHHQQRRRRIIIMTTTTNNKKSSRRVVVVAAAADDEEGGGG";
  const std::pair<char, std::string> codes[] = {
      {'T', "T"},   {'u', "T"},   {'C', "C"},   {'a', "A"},   {'G', "G"},  {'R', "AG"},
      {'Y', "CT"},  {'S', "GC"},  {'w', "AT"},  {'K', "GT"},  {'M', "AC"}, {'B', "CGT"},
      {'D', "AGT"}, {'H', "ACT"}, {'V', "ACG"}, {'n', "ACGT"}};
  std::string codons;
  std::string protein;
  for (const auto& [a, as] : codes) {
    for (const auto& [b, bs] : codes) {
      for (const auto& [c, cs] : codes) {
        std::string common;
        for (std::size_t k = 0; k < 64; ++k) {
          const bool stands = as.find(bases[k / 16]) != as.npos &&
                              bs.find(bases[k / 4 % 4]) != bs.npos &&
                              cs.find(bases[k % 4]) != cs.npos;
          if (stands && common.find(acids[k]) == common.npos) common += acids[k];
        }
        codons += {a, b, c};
        protein += common.size() == 1 ? common : "X";
      }
    }
  }
  EXPECT_EQ(printed(protein), call(vstring_translate, {codons + "AC"}));
}

TEST(Dna, ValuesAndRefusals) {
  Check({
      {R"(revcomp(acgu), revcomp("acgu", rna), revcomp("AR-n"), revcomp("", "dna"))",
       R"("acgt", "acgu", "n-YT", "")"},
      {R"(translate("auggcn"), translate("AT"), translate("TARRAYNNN---"), translate(ATGJJ))",
       R"("MA", "", "*XX-", "M")"},
  });
  CheckRefusals({
      {"unrecognised kind `\"protein\"'", R"(revcomp("A", "protein"))"},
      {"invalid codon `\"AT-\"'", R"(translate("AT-"); translate("ATGAT---J"))"},
  });
}

}  // namespace
}  // namespace vstring_test
