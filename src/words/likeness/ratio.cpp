#include "words/likeness/ratio.h"

#include <algorithm>

#include "words/likeness/indel.h"
#include "words/likeness/window_lcs.h"

namespace vstring::words {
namespace {

Result<double> best_window(Bytes shorter, Bytes longer) {
  WindowLcs windows;
  const Status status = windows.comb(shorter, longer);
  if (status != Status::ok) return status;
  double best = 0;
  windows.for_each_window([&](std::size_t length, std::size_t common) {
    best = std::max(best, ratio_of(common, shorter.size() + length));
  });
  return best;
}

}  // namespace

double ratio_of(std::size_t common, std::size_t both) {
  return both == 0 ? 100 : static_cast<double>(200 * common) / static_cast<double>(both);
}

Result<double> ratio(Bytes s, Bytes t) {
  const Result<std::size_t> common = common_subsequence_length(s, t);
  if (!common.ok()) return common.status();
  return ratio_of(*common, s.size() + t.size());
}

Result<double> partial_ratio(Bytes s, Bytes t) {
  if (s.empty() || t.empty()) return s.empty() && t.empty() ? 100.0 : 0.0;
  const Result<double> likeness = s.size() <= t.size() ? best_window(s, t) : best_window(t, s);
  if (!likeness.ok() || s.size() != t.size()) return likeness;
  const Result<double> other = best_window(t, s);
  return !other.ok() || *other > *likeness ? other : likeness;
}

}  // namespace vstring::words
