#include "words/likeness/indel.h"

#include "bytes/common.h"
#include "runtime/small_array.h"
#include "words/likeness/stripe.h"

namespace vstring::words {

Result<std::size_t> common_subsequence_length(Bytes s, Bytes t) {
  const std::size_t ends = trim_common_ends(s, t);
  const Bytes rows = s.size() >= t.size() ? s : t;
  const Bytes columns = s.size() >= t.size() ? t : s;
  if (columns.empty()) return ends;
  SmallArray<LcsTable::Run, 32> runs;
  if (!runs.allocate(runs_for(columns.size()))) return Status::out_of_memory;
  std::size_t length = ends + last_row<LcsTable>(rows, columns, runs.view()).value;
  for (const LcsTable::Run& run : runs.view()) length += run.gain();
  runs.free();
  return length;
}

Result<std::size_t> indel_distance(Bytes s, Bytes t) {
  const Result<std::size_t> common = common_subsequence_length(s, t);
  if (!common.ok()) return common.status();
  return s.size() + t.size() - 2 * *common;
}

}  // namespace vstring::words
