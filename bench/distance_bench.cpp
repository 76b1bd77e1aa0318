// Levenshtein distance, beside two rows of the table and edlib: words without likeness, and words
// that differ in a twentieth of their letters.
#include <algorithm>
#include <numeric>
#include <random>

#include "harness/job.h"
#include "harness/texts.h"
#ifdef VSTRING_PEER_EDLIB
#include <edlib.h>
#endif

namespace bench {
namespace {

constexpr std::string_view kLetters = "abcdefghijklmnopqrst";

std::string edited(std::string word) {
  std::mt19937 engine(1);
  for (std::size_t i = 0; i < 1 + word.size() / 20; ++i) {
    const std::size_t at = engine() % word.size();
    switch (engine() % 3) {
      case 0:
        word.erase(at, 1);
        break;
      case 1:
        word.insert(at, "x");
        break;
      default:
        word[at] = 'y';
    }
  }
  return word;
}

// R. A. Wagner and M. J. Fischer, "The string-to-string correction problem", 1974.
std::size_t two_rows(const std::string& s, const std::string& t) {
  std::vector<std::uint32_t> row(t.size() + 1);
  std::vector<std::uint32_t> next(t.size() + 1);
  std::iota(row.begin(), row.end(), 0U);
  for (std::size_t i = 0; i < s.size(); ++i) {
    next[0] = static_cast<std::uint32_t>(i + 1);
    for (std::size_t j = 0; j < t.size(); ++j) {
      next[j + 1] = std::min({next[j] + 1, row[j + 1] + 1, row[j] + (s[i] != t[j] ? 1U : 0U)});
    }
    row.swap(next);
  }
  return row.back();
}

#ifdef VSTRING_PEER_EDLIB
std::int64_t edlib(const std::string& s, const std::string& t) {
  const EdlibAlignResult found =
      edlibAlign(s.data(), static_cast<int>(s.size()), t.data(), static_cast<int>(t.size()),
                 edlibNewAlignConfig(-1, EDLIB_MODE_NW, EDLIB_TASK_DISTANCE, nullptr, 0));
  edlibFreeAlignResult(found);
  return found.editDistance;
}
#endif

const Jobs added([] {
  for (const bool similar : {true, false}) {
    for (const std::size_t n : {8U, 64U, 1000U, 10000U}) {
      job("Levenshtein/" + std::to_string(n) + (similar ? " similar" : " unrelated"), [=] {
        const std::string s = random_text(n, kLetters, 1);
        const std::string t = similar ? edited(s) : random_text(n, kLetters, 2);
        std::vector<Contestant> all{{"ours", call(vstring_levenshtein, {argument(s), argument(t)})},
                                    {"two rows", [=] { return result(two_rows(s, t)); }}};
#ifdef VSTRING_PEER_EDLIB
        all.push_back({"edlib", [=] { return result(edlib(s, t)); }});
#endif
        return all;
      });
    }
  }
});

}  // namespace
}  // namespace bench
