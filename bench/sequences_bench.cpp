// Suffix arrays, transforms, common factors, alignments, likeness and tallies, beside
// libdivsufsort, a suffix automaton, edlib and the standard library.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <unordered_map>

#include "harness/job.h"
#include "harness/texts.h"
#ifdef VSTRING_PEER_DIVSUFSORT
#include <divsufsort.h>
#endif
#ifdef VSTRING_PEER_EDLIB
#include <edlib.h>
#endif

namespace bench {
namespace {

// ---- Suffixes ----

#ifdef VSTRING_PEER_DIVSUFSORT
const unsigned char* codes(const std::string& text) {
  return reinterpret_cast<const unsigned char*>(text.data());
}

HostObject sorted_suffixes(const std::string& text) {
  std::vector<std::int32_t> sorted(text.size());
  divsufsort(codes(text), sorted.data(), static_cast<std::int32_t>(text.size()));
  return list(sorted.size(), [&](std::size_t i) { return result(sorted[i] + 1); });
}

HostObject transform(const std::string& text) {
  std::string last(text.size(), '\0');
  divbwt(codes(text), reinterpret_cast<unsigned char*>(last.data()), nullptr,
         static_cast<std::int32_t>(text.size()));
  return result(last);
}
#endif

// How long the longest common factor is. A. Blumer et al., "The smallest automaton recognizing the
// subwords of a text", 1985, of s; t is run through it.
std::size_t longest_common(const std::string& s, const std::string& t) {
  struct State {
    std::array<std::int32_t, 256> next;
    std::int32_t link = -1;
    std::int32_t length = 0;
    State() { next.fill(-1); }
  };
  std::vector<State> states(1);
  states.reserve(2 * s.size());
  const auto at = [&](std::int32_t i) -> State& { return states[static_cast<std::size_t>(i)]; };
  std::int32_t last = 0;
  for (const char letter : s) {
    const auto c = static_cast<unsigned char>(letter);
    const auto added = static_cast<std::int32_t>(states.size());
    states.emplace_back();
    at(added).length = at(last).length + 1;
    std::int32_t p = last;
    for (; p >= 0 && at(p).next[c] < 0; p = at(p).link) at(p).next[c] = added;
    if (p < 0) {
      at(added).link = 0;
    } else if (const std::int32_t q = at(p).next[c]; at(q).length == at(p).length + 1) {
      at(added).link = q;
    } else {
      const auto clone = static_cast<std::int32_t>(states.size());
      states.push_back(at(q));
      at(clone).length = at(p).length + 1;
      for (; p >= 0 && at(p).next[c] == q; p = at(p).link) at(p).next[c] = clone;
      at(q).link = at(added).link = clone;
    }
    last = added;
  }
  std::int32_t state = 0;
  std::int32_t length = 0;
  std::int32_t longest = 0;
  for (const char letter : t) {
    const auto c = static_cast<unsigned char>(letter);
    while (state > 0 && at(state).next[c] < 0) length = at(state = at(state).link).length;
    if (at(state).next[c] < 0) continue;
    state = at(state).next[c];
    longest = std::max(longest, ++length);
  }
  return static_cast<std::size_t>(longest);
}

// ---- Alignments ----

#ifdef VSTRING_PEER_EDLIB
// A cigar of the least edits, of which there may be others.
std::string edlib_cigar(const std::string& s, const std::string& t) {
  const EdlibAlignResult found =
      edlibAlign(s.data(), static_cast<int>(s.size()), t.data(), static_cast<int>(t.size()),
                 edlibNewAlignConfig(-1, EDLIB_MODE_NW, EDLIB_TASK_PATH, nullptr, 0));
  char* const text =
      edlibAlignmentToCigar(found.alignment, found.alignmentLength, EDLIB_CIGAR_EXTENDED);
  std::string cigar = text;
  std::free(text);
  edlibFreeAlignResult(found);
  return cigar;
}

std::size_t edit_distance(const std::string& s, const std::string& t, std::size_t most) {
  const EdlibAlignResult found = edlibAlign(
      s.data(), static_cast<int>(s.size()), t.data(), static_cast<int>(t.size()),
      edlibNewAlignConfig(static_cast<int>(most), EDLIB_MODE_NW, EDLIB_TASK_DISTANCE, nullptr, 0));
  edlibFreeAlignResult(found);
  return found.editDistance < 0 ? most + 1 : static_cast<std::size_t>(found.editDistance);
}

// How many columns of a cigar are edits.
std::size_t edits_of(const std::string& cigar) {
  std::size_t edits = 0;
  std::size_t n = 0;
  for (const char c : cigar) {
    if (c >= '0' && c <= '9') {
      n = 10 * n + static_cast<std::size_t>(c - '0');
    } else {
      edits += c == '=' ? 0 : n;
      n = 0;
    }
  }
  return edits;
}
#endif

void add_pair(const char* row, VelmorCommand command, bool has_peer) {
  for (const bool alike : {false, true}) {
    for (const std::size_t n : {100U, 1000U, 10000U}) {
      job("alignments/" + std::string(row) + " " + std::to_string(n) +
              (alike ? " similar" : " unrelated"),
          [=] {
            const std::string s = random_text(n, "ACGT", 1);
            std::string t = alike ? s : random_text(n, "ACGT", 2);
            for (std::size_t i = 0; alike && i < n; i += 20) t[i] = 'A';
            const Work ours = call(command, {argument(s), argument(t)});
            std::vector<Contestant> all{{"ours", ours}};
#ifdef VSTRING_PEER_EDLIB
            if (has_peer) {
              const std::size_t least = edits_of(velmor_text(ours()));
              if (edits_of(edlib_cigar(s, t)) == least) {
                all.push_back(
                    {"edlib", [=] { return result(edlib_cigar(s, t)); }, Does::something});
              }
            }
#endif
            return all;
          });
    }
  }
}

// ---- Likeness and tallies ----

#ifdef VSTRING_PEER_EDLIB
// The first of those that are nearest, and how near.
HostObject nearest(const std::string& word, const std::vector<std::string>& words) {
  std::size_t best = 0;
  std::size_t least = word.size() + words[0].size();
  for (std::size_t i = 0; i < words.size() && least > 0; ++i) {
    const std::size_t distance = edit_distance(word, words[i], least - 1);
    if (distance < least) {
      least = distance;
      best = i;
    }
  }
  return list(1, [&](std::size_t) {
    return list(2, [&](std::size_t i) { return i == 0 ? result(words[best]) : result(least); });
  });
}
#endif

HostObject counts(const std::vector<std::string>& texts) {
  std::unordered_map<std::string_view, std::size_t> places;
  std::vector<std::pair<std::string_view, std::size_t>> all;
  for (const std::string& text : texts) {
    const auto [place, is_new] = places.try_emplace(text, all.size());
    if (is_new) all.emplace_back(text, 0);
    ++all[place->second].second;
  }
  return list(all.size(), [&](std::size_t i) {
    return table()->HostNewExpr("=", result(std::string(all[i].first)), result(all[i].second));
  });
}

const std::vector<std::string>& tokens() {
  static const std::vector<std::string> all = [] {
    std::vector<std::string> found;
    for (std::size_t i = 0; i < megabyte().size();) {
      const std::size_t end = std::min(megabyte().find_first_of(" \n", i), megabyte().size());
      if (end > i) found.push_back(megabyte().substr(i, end - i));
      i = end + 1;
    }
    return found;
  }();
  return all;
}

const Jobs added([] {
  struct Kind {
    const char* name;
    std::string (*text)();
  };
  constexpr std::size_t kLength = 1 << 20;
  for (const Kind& kind : {Kind{"prose", [] { return prose().substr(0, kLength); }},
                           Kind{"DNA", [] { return dna().substr(0, kLength); }},
                           Kind{"random bytes", [] { return noise().substr(0, kLength); }},
                           Kind{"Fibonacci", [] { return fibonacci_word(kLength); }}}) {
    const auto add = [&](const char* row, VelmorCommand command,
                         HostObject (*peer)(const std::string&), Does does) {
      job("suffixes/" + std::string(row) + " " + kind.name, [=] {
        static std::string text;
        text = kind.text();
        std::vector<Contestant> all{{"ours", call(command, {argument(text)})}};
        if (peer != nullptr) all.push_back({"libdivsufsort", [=] { return peer(text); }, does});
        return all;
      });
    };
#ifdef VSTRING_PEER_DIVSUFSORT
    add("suffixarray", vstring_suffixarray, sorted_suffixes, Does::the_same);
    add("bwt", vstring_bwt, transform, Does::something);  // of suffixes, not of rotations
#endif
    add("repetitions", vstring_repetitions, nullptr, Does::something);
    job("suffixes/lcsubstring " + std::string(kind.name),
        [=] {  // the automaton takes 2 kB a letter
          const std::string text = kind.text();
          const std::string s = text.substr(0, 100'000);
          const std::string t = text.substr(100'000, 100'000);
          const Work ours = call(vstring_lcsubstring, {argument(s), argument(t)});
          const std::size_t n = velmor_text_length(ours());
          return std::vector<Contestant>{
              {"ours", ours},
              {"automaton", [=] { return result(longest_common(s, t) == n); }, Does::a_part}};
        });
  }
  add_pair("edits", vstring_edits, true);
  add_pair("align", vstring_align, false);
  add_pair("partialratio", vstring_partialratio, false);
  job("likeness/closest in web2", [] {
    const HostObject words = argument(dictionary());
    std::vector<Contestant> all{{"ours", call(vstring_closest, {argument("appelation"), words})}};
#ifdef VSTRING_PEER_EDLIB
    all.push_back({"edlib", [] { return nearest("appelation", dictionary()); }});
#endif
    return all;
  });
  job("likeness/tally of words", [] {
    return std::vector<Contestant>{{"ours", call(vstring_tally, {argument(tokens())})},
                                   {"std::unordered_map", [] { return counts(tokens()); }}};
  });
});

}  // namespace
}  // namespace bench
