// Alignments beside the table of all suffixes, the local score beside that of T. F. Smith and M. S.
// Waterman, distances beside the scores that they are.
#include "words/alignment_reference.h"

#include "input.h"
#include "support/direct.h"

namespace {

std::int64_t local_score(const std::string& s, const std::string& t,
                         const vstring_test::Scores& scores) {
  std::int64_t best = 0;
  std::vector<std::int64_t> row(t.size() + 1);
  for (const char c : s) {
    std::int64_t diagonal = row[0];
    row[0] = std::max<std::int64_t>(0, row[0] + scores.gap);
    for (std::size_t j = 1; j <= t.size(); ++j) {
      const std::int64_t letters = diagonal + (c == t[j - 1] ? scores.match : scores.mismatch);
      diagonal = row[j];
      row[j] = std::max({std::int64_t{0}, letters, row[j] + scores.gap, row[j - 1] + scores.gap});
      best = std::max(best, row[j]);
    }
  }
  return best;
}

}  // namespace

void vstring_test::try_input(Input& input) {
  input.choose_letters();
  const auto score = [&] { return static_cast<std::int64_t>(input.below(9)) - 4; };
  const Scores scores = {score(), score(), score()};
  const std::string s = input.text(70), t = input.text(70);
  const Values arguments = {s, t, equation("match", scores.match),
                            equation("mismatch", scores.mismatch), equation("gap", scores.gap)};
  const auto head = [](std::int64_t number, const std::string& more) {
    return "[" + std::to_string(number) + ", " + more;
  };
  const Alignment best = best_alignment(s, t, scores);
  const std::string expected = head(best.score, printed(cigar(best.columns)));
  expect_same(expected, call(vstring_align, arguments).substr(0, expected.size()));
  const Alignment edits = best_alignment(s, t, {0, -1, -1});
  expect_same(printed(cigar(edits.columns)), call(vstring_edits, {s, t}));
  expect_same(std::to_string(-edits.score), call(vstring_levenshtein, {s, t}));
  expect_same(std::to_string(-best_alignment(s, t, {0, kNever, -1}).score),
              call(vstring_indel, {s, t}));
  if (scores.gap > 0) return;  // the table of prefixes knows no alignment of nothing
  const std::string local = head(local_score(s, t, scores), "");
  expect_same(local, call(vstring_localalign, arguments).substr(0, local.size()));
}
