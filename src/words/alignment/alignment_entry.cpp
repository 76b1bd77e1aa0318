// Entry points: edits, lcs, align, localalign.
#include <iterator>

#include "host/args.h"
#include "host/result.h"
#include "words/alignment/alignment.h"
#include "words/alignment/column.h"
#include "words/alignment/edit_path.h"

using namespace vstring;

namespace {

HostObject new_cigar(const Args& args, Bytes columns) {
  TextResult cigar(args, words::cigar_length(columns));
  words::write_cigar(columns, cigar.bytes());
  return cigar.object();
}

HostObject new_row(const Args& args, Bytes columns, Bytes word, Byte without) {
  TextResult row(args, columns.size());
  words::write_row(columns, word, without, row.bytes());
  return row.object();
}

struct ScoreOption {
  const char* name;
  std::int32_t words::Scores::*score;
  const char* refusal;
};

constexpr ScoreOption kScoreOptions[] = {
    {"match", &words::Scores::match,
     "the `match' value must be an integer from -1000 to 1000, but received %1"},
    {"mismatch", &words::Scores::mismatch,
     "the `mismatch' value must be an integer from -1000 to 1000, but received %1"},
    {"gap", &words::Scores::gap,
     "the `gap' value must be an integer from -1000 to 1000, but received %1"},
};
constexpr std::int32_t kGreatestScore = 1000;

// The options from argument 3 on, the last one of a name being the one that counts.
words::Scores scores_of(const Args& args) {
  words::Scores scores;
  for (int position = 3; args.has(position); ++position) {
    const HostObject argument = args.object(position);
    const ScoreOption* option = std::end(kScoreOptions);
    if (is_equation(argument) && is_text(left_side(argument))) {
      const Bytes name = text_of(left_side(argument));
      option = std::begin(kScoreOptions);
      while (option != std::end(kScoreOptions) && !equal(name, option->name)) ++option;
    }
    if (option == std::end(kScoreOptions)) args.raise(messages::kInvalidOption, argument);
    const HostObject value = right_side(argument);
    if (!args.is_integer32(value)) args.raise(option->refusal, value);
    const std::int32_t score = args.host()->HostToInteger32(value);
    if (score < -kGreatestScore || score > kGreatestScore) args.raise(option->refusal, value);
    scores.*option->score = score;
  }
  return scores;
}

}  // namespace

HostObject vstring_edits(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  HeldArray<Byte> columns;
  args.require(words::edit_path(s, args.text(2), columns));
  const HostObject cigar = new_cigar(args, columns.view());
  columns.free();
  return cigar;
}

HostObject vstring_lcs(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  HeldArray<Byte> columns;
  args.require(words::subsequence_path(s, args.text(2), columns));
  TextResult common(args, words::count_equal(columns.view()));
  words::write_equal(columns.view(), s, common.bytes());
  columns.free();
  return common.object();
}

HostObject vstring_align(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes s = args.text(1);
  const Bytes t = args.text(2);
  const words::Scores scores = scores_of(args);
  HeldArray<Byte> columns;
  const Result<std::int64_t> score = words::align(s, t, scores, columns);
  args.require(score.status());
  const HostObject list =
      new_list_of(args, {host->HostNewInteger(*score), new_cigar(args, columns.view()),
                         new_row(args, columns.view(), s, words::kInserted),
                         new_row(args, columns.view(), t, words::kDeleted)});
  columns.free();
  return list;
}

HostObject vstring_localalign(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  Bytes s = args.text(1);
  Bytes t = args.text(2);
  const words::Scores scores = scores_of(args);
  const Result<words::LocalPair> pair = words::best_local_pair(s, t, scores);
  args.require(pair.status());
  if (pair->score == 0) {
    const HostObject zero = host->HostNewInteger(0);
    const HostObject none = empty_string(args);
    return new_list_of(args, {zero, zero, zero, none, none, none});
  }
  s = s.subspan(pair->start_s, pair->end_s - pair->start_s);
  t = t.subspan(pair->start_t, pair->end_t - pair->start_t);
  HeldArray<Byte> columns;
  args.require(words::align(s, t, scores, columns).status());
  const HostObject list =
      new_list_of(args, {host->HostNewInteger(pair->score), new_integer(args, pair->start_s + 1),
                         new_integer(args, pair->start_t + 1), new_cigar(args, columns.view()),
                         new_row(args, columns.view(), s, words::kInserted),
                         new_row(args, columns.view(), t, words::kDeleted)});
  columns.free();
  return list;
}
