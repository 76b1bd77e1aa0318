// Search with k mismatches or k edits, in prose and in DNA.
//
// edlib finds the ends of the best distance only, and TRE the first match: they say whether there
// is one.
#include <algorithm>

#include "harness/job.h"
#include "harness/texts.h"
#include "peers/hyperscan.h"
#ifdef VSTRING_PEER_EDLIB
#include <edlib.h>
#endif
#ifdef VSTRING_PEER_TRE
#include <tre/tre.h>
#endif

namespace bench {
namespace {

using Text = const std::string& (*)();

const std::string& dna_megabyte() {
  static const std::string text = dna().substr(0, 1 << 20);
  return text;
}

const std::string& power() {
  static const std::string text(1 << 20, 'a');
  return text;
}

// A piece of the text, so that stretches of it do occur, with n other letters of the text.
std::string spoilt_piece(const std::string& text, std::size_t m, std::size_t n) {
  std::string piece = text.substr(text.size() / 2, m);
  std::size_t other = 0;
  for (std::size_t i = 0; i < n; ++i) {
    char& c = piece[(2 * i + 1) * m / (2 * n)];
    while (text[other] == c || text[other] < 'A') ++other;
    c = text[other++];
  }
  return piece;
}

// ---- k mismatches ----

std::size_t differences(const char* s, const char* t, std::size_t m, std::size_t most) {
  std::size_t n = 0;
  for (std::size_t i = 0; i < m && n <= most; ++i) n += s[i] != t[i] ? 1 : 0;
  return n;
}

struct Hit {
  std::size_t offset;
  std::size_t differences;
};

HostObject pairs(const std::vector<Hit>& hits) {
  return sequence(hits.size(),
                  [&](std::size_t i) { return pair(hits[i].offset + 1, hits[i].differences); });
}

std::vector<Contestant> mismatched(const std::string& pattern, const std::string& text,
                                   std::size_t k) {
  const std::size_t m = pattern.size();
  std::vector<Contestant> all{{"ours", call(vstring_hsearchx, {argument(pattern), argument(text),
                                                               argument(std::int64_t(k))})}};
  all.push_back({"plain loop", [=, &text] {
                   std::vector<Hit> hits;
                   for (std::size_t i = 0; i + m <= text.size(); ++i) {
                     const std::size_t n = differences(pattern.data(), text.data() + i, m, k);
                     if (n <= k) hits.push_back({i, n});
                   }
                   return pairs(hits);
                 }});
#ifdef VSTRING_PEER_HYPERSCAN
  hs_expr_ext_t extended = {};
  extended.flags = HS_EXT_FLAG_HAMMING_DISTANCE;
  extended.hamming_distance = static_cast<unsigned>(k);
  const Hyperscan compiled(pattern, HS_FLAG_DOTALL, &extended);
  all.push_back({"Hyperscan", [=, &text]() -> HostObject {
                   if (!compiled.accepted()) return 0;
                   std::vector<Hit> hits;
                   compiled.scan(text, [&](unsigned, std::size_t end) {
                     const char* const at = text.data() + end - m;
                     hits.push_back({end - m, differences(pattern.data(), at, m, k)});
                     return false;
                   });
                   return pairs(hits);
                 }});
#endif
  return all;
}

// ---- k edits ----

enum class Asked { first, all };

#ifdef VSTRING_PEER_EDLIB
bool edlib_has(const std::string& pattern, const std::string& text, int k) {
  const EdlibAlignResult found = edlibAlign(
      pattern.data(), static_cast<int>(pattern.size()), text.data(), static_cast<int>(text.size()),
      edlibNewAlignConfig(k, EDLIB_MODE_HW, EDLIB_TASK_DISTANCE, nullptr, 0));
  const bool has = found.editDistance >= 0;
  edlibFreeAlignResult(found);
  return has;
}
#endif

#ifdef VSTRING_PEER_TRE
bool tre_has(const std::string& pattern, const std::string& text, int k) {
  regex_t regex;
  tre_regncomp(&regex, pattern.data(), pattern.size(), REG_LITERAL | REG_NOSUB);
  regaparams_t parameters;
  tre_regaparams_default(&parameters);
  parameters.max_cost = k;
  regamatch_t match = {};
  const int status = tre_reganexec(&regex, text.data(), text.size(), &match, parameters, 0);
  tre_regfree(&regex);
  return status == 0;
}
#endif

// By the table of edit distances: its definition is that of the peers for patterns of any length.
std::vector<Contestant> edited(const std::string& pattern, const std::string& text, int k,
                               Asked asked) {
  const auto command = asked == Asked::first ? vstring_asearchb : vstring_asearchxb;
  const auto selector = argument(std::int64_t{2});
  const Work ours =
      call(command, {argument(pattern), argument(text), argument(std::int64_t{k}), selector});
  std::vector<Contestant> all{{"ours", ours}};
#ifdef VSTRING_PEER_HYPERSCAN
  hs_expr_ext_t extended = {};
  extended.flags = HS_EXT_FLAG_EDIT_DISTANCE;
  extended.edit_distance = static_cast<unsigned>(k);
  const Hyperscan compiled(pattern, HS_FLAG_DOTALL, &extended);
  all.push_back({"Hyperscan", [=, &text]() -> HostObject {
                   if (!compiled.accepted()) return 0;
                   std::vector<std::size_t> ends;
                   compiled.scan(text, [&](unsigned, std::size_t end) {
                     ends.push_back(end);
                     return asked == Asked::first;
                   });
                   if (asked == Asked::first) return result(ends.empty() ? 0 : ends[0]);
                   return sequence(ends.size(), [&](std::size_t i) { return result(ends[i]); });
                 }});
#endif
  const std::string told = printed(ours());
  const bool has = told != "0" && told != "[]";
  const auto add = [&](const char* who, bool (*ask)(const std::string&, const std::string&, int)) {
    all.push_back({who, [=, &text] { return result(ask(pattern, text, k) == has); }, Does::a_part});
  };
#ifdef VSTRING_PEER_EDLIB
  add("edlib", edlib_has);
#endif
#ifdef VSTRING_PEER_TRE
  if (pattern.size() <= 32) add("TRE", tre_has);
#endif
  return all;
}

const Jobs added([] {
  const auto mismatches = [](const char* kind, Text text, std::size_t m, std::size_t k) {
    job("k mismatches/" + std::string(kind) + " m " + std::to_string(m) + " k " + std::to_string(k),
        [=] { return mismatched(spoilt_piece(text(), m, k + 1), text(), k); });
  };
  mismatches("prose", megabyte, 10, 1);
  mismatches("prose", megabyte, 10, 3);
  mismatches("prose", megabyte, 32, 1);
  mismatches("prose", megabyte, 32, 3);
  mismatches("prose", megabyte, 32, 8);
  mismatches("prose", megabyte, 64, 8);
  mismatches("DNA", dna_megabyte, 32, 3);
  job("k mismatches/a^28 b^4 in a^n k 3",
      [] { return mismatched(std::string(28, 'a') + std::string(4, 'b'), power(), 3); });

  const auto edits = [](const char* kind, Text text, std::size_t m, int k, Asked asked) {
    job("k edits/" + std::string(kind) + " m " + std::to_string(m) + " k " + std::to_string(k) +
            (asked == Asked::first ? " first" : " all"),
        [=] {
          return edited(spoilt_piece(text(), m, static_cast<std::size_t>(k) + 1), text(), k, asked);
        });
  };
  for (const Asked asked : {Asked::all, Asked::first}) {
    for (const auto& [m, k] : {std::pair{10, 1}, {10, 3}}) {
      edits("prose", megabyte, static_cast<std::size_t>(m), k, asked);
    }
  }
  edits("prose", megabyte, 10, 8, Asked::all);
  edits("prose", megabyte, 32, 3, Asked::all);
  edits("prose", megabyte, 32, 8, Asked::all);
  edits("prose", megabyte, 60, 8, Asked::all);
  edits("DNA", dna_megabyte, 32, 3, Asked::all);
  edits("DNA", dna_megabyte, 200, 8, Asked::all);
  job("k edits/a^55 b^9 in a^n k 8 all",
      [] { return edited(std::string(55, 'a') + std::string(9, 'b'), power(), 8, Asked::all); });
});

}  // namespace
}  // namespace bench
