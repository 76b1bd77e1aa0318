// The vector kernels and their plain twins beside loops over single bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "bytes/byte_map.h"
#include "bytes/byte_scan.h"
#include "bytes/byte_sums.h"
#include "bytes/capitalise.h"
#include "bytes/comb.h"
#include "bytes/common.h"
#include "bytes/common_case.h"
#include "bytes/count_byte.h"
#include "bytes/cpu.h"
#include "bytes/edit_column.h"
#include "bytes/edit_lanes.h"
#include "bytes/edit_stripe.h"
#include "bytes/find_near.h"
#include "bytes/find_probes.h"
#include "bytes/is_sorted.h"
#include "bytes/pass_greater.h"
#include "bytes/prefix_filter.h"
#include "bytes/reverse.h"
#include "bytes/scan_stream.h"
#include "bytes/score_cells.h"

namespace vstring_test {
namespace {

using namespace vstring;

// Runs a check with the vector kernels and without. Texts are exactly as long as their blocks, so
// that the sanitizers see a read beyond the end.
template <typename Check>
void on_random_texts(Check check) {
  std::mt19937 random(20261121);
  for (int i = 0; i < 4000; ++i) {
    std::vector<Byte> text(random() % (i % 2 == 0 ? 40 : 300));
    const std::size_t letters = 2 + random() % 40;  // where few, kernels stop at once
    const std::size_t first = random() % 256;
    for (Byte& c : text) c = static_cast<Byte>(first + random() % letters * 7);
    for (const bool plain : {false, true}) {
      plain_kernels_only = plain;
      check(Bytes(text), random);
    }
    plain_kernels_only = false;
    if (testing::Test::HasFailure()) return;
  }
}

// The same for kernels without a place to begin at: every length up to some blocks, at every
// alignment, bytes of any value.
template <typename Check>
void at_every_alignment(Check check) {
  std::mt19937 random(20261122);
  for (std::size_t n = 0; n <= 200; ++n) {
    for (std::size_t alignment = 0; alignment < 32; ++alignment) {
      std::vector<Byte> block(alignment + n);
      for (Byte& c : block) c = static_cast<Byte>(random());
      for (const bool plain : {false, true}) {
        plain_kernels_only = plain;
        check(Bytes(block).subspan(alignment), random);
      }
      plain_kernels_only = false;
      if (testing::Test::HasFailure()) return;
    }
  }
}

// Both.
template <typename Check>
void everywhere(Check check) {
  on_random_texts(check);
  at_every_alignment(check);
}

ByteSet random_set(std::mt19937& random, std::size_t members) {
  ByteSet set;
  for (std::size_t i = 0; i < members; ++i) set.add(static_cast<Byte>(random()));
  return set;
}

// The first place from `at` on where a condition holds; `none` when there is none before `end`.
template <typename Condition>
std::size_t first_place(std::size_t at, std::size_t end, std::size_t none, Condition holds) {
  for (; at < end; ++at) {
    if (holds(at)) return at;
  }
  return none;
}

TEST(Kernels, ReverseBytes) {
  at_every_alignment([](Bytes text, std::mt19937&) {
    std::vector<Byte> out(text.size());
    reverse_bytes(text, out);
    EXPECT_TRUE(std::equal(text.rbegin(), text.rend(), out.begin(), out.end()));
  });
}

// Few rows of sixteen change, or all of them; some bytes are mapped twice.
TEST(Kernels, ByteMap) {
  at_every_alignment([](Bytes text, std::mt19937& random) {
    ByteMap map;
    std::vector<Byte> images(256);
    for (std::size_t c = 0; c < 256; ++c) images[c] = static_cast<Byte>(c);
    for (std::size_t i = random() % 3 == 0 ? 300 : random() % 8; i > 0; --i) {
      const auto from = static_cast<Byte>(random());
      images[from] = static_cast<Byte>(random());
      map.set(from, images[from]);
    }
    const std::size_t first = random() % 256;
    const std::size_t last = first + random() % std::min<std::size_t>(256 - first, 40);
    const auto change = static_cast<Byte>(random());
    map.set_all(static_cast<Byte>(first), static_cast<Byte>(last),
                [change](Byte c) { return static_cast<Byte>(c + change); });
    for (std::size_t c = first; c <= last; ++c) images[c] = static_cast<Byte>(c + change);
    std::vector<Byte> out(text.size());
    map.apply(text, out);
    for (std::size_t i = 0; i < text.size(); ++i) ASSERT_EQ(images[text[i]], out[i]);
  });
}

// Words of any bytes, of few of them or of most.
TEST(Kernels, CapitaliseWords) {
  at_every_alignment([](Bytes text, std::mt19937& random) {
    ByteSet set = random_set(random, 200);
    if (random() % 4 == 0) set.complement();
    std::vector<Byte> letters(text.begin(), text.end());
    for (Byte& c : letters) c = random() % 4 == 0 ? c : static_cast<Byte>('A' + c % 58);
    std::vector<Byte> out(letters.size());
    capitalise_words(ByteScan(set), letters, out);
    bool inside = false;
    for (std::size_t i = 0; i < letters.size(); ++i) {
      int expected = letters[i];
      if (set.has(letters[i])) {
        expected = inside ? std::tolower(letters[i]) : std::toupper(letters[i]);
      }
      ASSERT_EQ(expected, out[i]);
      inside = set.has(letters[i]);
    }
  });
}

TEST(Kernels, CountByte) {
  everywhere([](Bytes text, std::mt19937& random) {
    const Byte c = text.empty() ? Byte{0} : text[random() % text.size()];
    EXPECT_EQ(std::count(text.begin(), text.end(), c), count_byte(text, c));
  });
  const std::vector<Byte> many(20000, 200);  // more than one byte of a sum can hold
  EXPECT_EQ(many.size(), count_byte(many, 200));
}

TEST(Kernels, ByteSums) {
  at_every_alignment([](Bytes text, std::mt19937& random) {
    std::vector<Byte> other(text.begin(), text.end());
    for (Byte& c : other) c = random() % 3 == 0 ? static_cast<Byte>(random()) : c;
    std::size_t different = 0;
    std::size_t ways = 0;
    std::size_t ways_to_0 = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const int distance = std::abs(text[i] - other[i]);
      different += distance != 0 ? 1U : 0U;
      ways += static_cast<std::size_t>(std::min(distance, 256 - distance));
      ways_to_0 += static_cast<std::size_t>(std::min<int>(text[i], 256 - text[i]));
    }
    EXPECT_EQ(different, count_different(text, other));
    EXPECT_EQ(ways, sum_ways(text, other));
    EXPECT_EQ(ways_to_0, sum_ways_to_0(text));
  });
}

// Two bytes of a sorted text change places, or none.
TEST(Kernels, IsSorted) {
  at_every_alignment([](Bytes text, std::mt19937& random) {
    std::vector<Byte> sorted(text.begin(), text.end());
    std::sort(sorted.begin(), sorted.end());
    EXPECT_TRUE(is_sorted(sorted));
    if (text.size() < 2) return;
    const std::size_t i = random() % (text.size() - 1);
    std::swap(sorted[i], sorted[i + 1]);
    EXPECT_EQ(sorted[i] <= sorted[i + 1], is_sorted(sorted));
  });
}

TEST(Kernels, CommonPrefix) {
  at_every_alignment([](Bytes text, std::mt19937& random) {
    std::vector<Byte> other(text.begin(), text.end());
    EXPECT_EQ(text.size(), common_prefix(text, other));
    if (text.empty()) return;
    const std::size_t i = random() % text.size();
    other[i] ^= static_cast<Byte>(1U << random() % 8);
    EXPECT_EQ(i, common_prefix(text, other));
    EXPECT_EQ(i, common_prefix(text, Bytes(other).first(i)));
  });
}

// Letters of either case, and what lies next to them or has their codes but for the top bit.
TEST(Kernels, CommonPrefixOfLetters) {
  at_every_alignment([](Bytes text, std::mt19937& random) {
    const char near_letters[] = "AZaz@[`{\300\332\341\372 mM\0";
    std::vector<Byte> s(text.begin(), text.end());
    for (Byte& c : s) c = c % 2 == 0 ? c : static_cast<Byte>(near_letters[c / 2 % 16]);
    std::vector<Byte> t = s;
    for (Byte& c : t) c = static_cast<Byte>(random() % 2 == 0 ? std::tolower(c) : std::toupper(c));
    EXPECT_EQ(s.size(), common_prefix_of_letters(s, t));
    if (s.empty()) return;
    const std::size_t i = random() % s.size();
    t[i] ^= random() % 2 == 0 ? Byte{0x20} : static_cast<Byte>(1U << random() % 8);
    const std::size_t expected = first_place(0, s.size(), s.size(), [&](std::size_t k) {
      return std::tolower(s[k]) != std::tolower(t[k]);
    });
    EXPECT_EQ(expected, common_prefix_of_letters(s, t));
    EXPECT_EQ(i, common_prefix_of_letters(s, Bytes(t).first(i)));
  });
}

TEST(Kernels, CombCells) {
  at_every_alignment([](Bytes text, std::mt19937& random) {
    std::vector<Byte> a(text.begin(), text.end());
    std::vector<Byte> b = a;
    for (Byte& c : b) c = random() % 2 == 0 ? c : static_cast<Byte>(random());
    std::vector<std::uint32_t> across(text.size());
    std::vector<std::uint32_t> down(text.size());
    for (std::uint32_t& strand : across) strand = static_cast<std::uint32_t>(random() % 500);
    for (std::uint32_t& strand : down) strand = static_cast<std::uint32_t>(random() % 500);
    const std::vector<std::uint32_t> across_before = across;
    const std::vector<std::uint32_t> down_before = down;
    comb_cells(a.data(), b.data(), a.size(), across.data(), down.data());
    for (std::size_t i = 0; i < a.size(); ++i) {
      const bool turn = a[i] == b[i] || across_before[i] > down_before[i];
      ASSERT_EQ(turn ? down_before[i] : across_before[i], across[i]);
      ASSERT_EQ(turn ? across_before[i] : down_before[i], down[i]);
    }
  });
}

template <typename Cell>
void expect_cells_of(Bytes a, std::mt19937& random) {
  const CellScores<Cell> scores = {2, -1, -2, random() % 2 == 0 ? 0 : -1000};
  const auto cell = [&] { return static_cast<Cell>(random() % 100) - 50; };
  std::vector<Byte> b(a.begin(), a.end());
  for (Byte& c : b) c = random() % 2 == 0 ? c : static_cast<Byte>(random());
  std::vector<Cell> corner(a.size());
  std::vector<Cell> before(a.size() + 1);
  std::vector<Cell> here(a.size());
  std::generate(corner.begin(), corner.end(), cell);
  std::generate(before.begin(), before.end(), cell);
  const Cell best =
      score_cells(a.data(), b.data(), a.size(), corner.data(), before.data(), here.data(), scores);
  Cell greatest = scores.floor;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const Cell met = corner[i] + (a[i] == b[i] ? scores.match : scores.mismatch);
    const Cell gap = std::max(before[i], before[i + 1]) + scores.gap;
    ASSERT_EQ(std::max({met, gap, scores.floor}), here[i]);
    greatest = std::max(greatest, here[i]);
  }
  EXPECT_EQ(greatest, best);
}

TEST(Kernels, ScoreCells) {
  at_every_alignment([](Bytes text, std::mt19937& random) {
    expect_cells_of<std::int32_t>(text, random);
    expect_cells_of<std::int64_t>(text, random);
  });
}

// Few letters, of both signs, so that many places agree with the bound in some of them.
TEST(Kernels, PassGreater) {
  at_every_alignment([](Bytes text, std::mt19937& random) {
    std::vector<Byte> letters(text.begin(), text.end());
    for (Byte& c : letters) c = c < 250 ? static_cast<Byte>(127 + c % 2) : c;
    std::vector<Byte> bound(8);
    for (Byte& c : bound) c = static_cast<Byte>(127 + random() % 2);
    const std::size_t n = letters.size();
    const std::size_t at = random() % (n + 1);
    const std::size_t last = n < 8 ? 0 : n - 7;
    const auto is_low = [&](std::size_t i) {
      const auto* const signed_letters = reinterpret_cast<const signed char*>(letters.data() + i);
      const auto* const signed_bound = reinterpret_cast<const signed char*>(bound.data());
      return !std::lexicographical_compare(signed_bound, signed_bound + 8, signed_letters,
                                           signed_letters + 8);
    };
    EXPECT_EQ(first_place(at, last, std::max(at, last), is_low),
              pass_greater(bound.data(), letters, at));
  });
}

TEST(Kernels, ByteScan) {
  everywhere([](Bytes text, std::mt19937& random) {
    ByteSet set = random_set(random, random() % 20);
    if (random() % 2 == 0) set.complement();
    const ByteScan scan(set);
    const std::size_t n = text.size();
    const std::size_t at = random() % (n + 1);
    EXPECT_EQ(first_place(at, n, n, [&](std::size_t i) { return set.has(text[i]); }),
              scan.find(text, at));
    EXPECT_EQ(first_place(at, n, n, [&](std::size_t i) { return !set.has(text[i]); }),
              scan.find_other(text, at));
  });
}

TEST(Kernels, ScanStream) {
  everywhere([](Bytes text, std::mt19937& random) {
    const ByteScan scan(random_set(random, random() % 20));
    ScanStream stream(scan, text);
    for (std::size_t at = 0; at < text.size(); at += 1 + random() % 9) {
      if (random() % 3 == 0) {
        EXPECT_EQ(scan.find_other(text, at), stream.find_other(at));
      }
      EXPECT_EQ(scan.find(text, at), stream.find(at));
    }
  });
}

// Block by block, every alignment at which all probes stand.
TEST(Kernels, FindProbes) {
  everywhere([](Bytes text, std::mt19937& random) {
    if (text.empty()) return;
    const std::size_t place = random() % text.size();
    const std::size_t reach = random() % std::min<std::size_t>(text.size() - place, 30);
    Probes probes;
    probes.count = 1 + random() % Probes::kMost;
    for (std::size_t i = 0; i < probes.count; ++i) {
      probes.offsets[i] = random() % (reach + 1);
      probes.bytes[i] = text[place + probes.offsets[i]];
    }
    const auto stand = [&](std::size_t at) {
      for (std::size_t i = 0; i < probes.count; ++i) {
        if (text[at + probes.offsets[i]] != probes.bytes[i]) return false;
      }
      return true;
    };
    const std::size_t end = random() % (text.size() - reach + 1);
    std::size_t passed = random() % (end + 1);
    Budget ahead = kLookAhead;
    while (passed < end) {
      std::size_t at = passed;
      const std::uint64_t hits = find_probes(text, at, end, probes, ahead);
      const std::size_t next = hits == 0 ? end : std::min(end, at + kProbeBlock);
      for (; passed < next; ++passed) {
        EXPECT_EQ(stand(passed), hits != 0 && passed >= at && (hits >> (passed - at) & 1) != 0);
      }
    }
  });
}

// Every lane beside a column of its own.
TEST(Kernels, EditLanes) {
  on_random_texts([](Bytes text, std::mt19937& random) {
    const std::size_t words = text.size() / (64 * kEditLanes);
    if (words == 0) return;
    const std::size_t lead = text.size() - 64 * kEditLanes * words;
    const std::size_t rows = 1 + random() % 64;
    const std::size_t k = random() % rows;
    std::uint64_t equal[256] = {};
    for (std::size_t i = 0; i < rows; ++i) {
      equal[text[random() % text.size()]] |= std::uint64_t{1} << i;
    }
    std::vector<std::uint64_t> ends(kEditLanes * words);
    find_edit_ends({equal, rows, k}, text.data(), lead, words, ends.data());
    for (std::size_t lane = 0; lane < kEditLanes; ++lane) {
      EditColumn column;
      auto distance = static_cast<std::int64_t>(rows);
      for (std::size_t i = 0; i < lead + 64 * words; ++i) {
        distance += column.advance(equal[text[64 * words * lane + i]], {}, rows - 1).value();
        if (i < lead) continue;
        const std::uint64_t hits = ends[(i - lead) / 64 * kEditLanes + lane];
        ASSERT_EQ(distance <= static_cast<std::int64_t>(k), (hits >> (i - lead) % 64 & 1) != 0);
      }
    }
  });
}

// Beside columns that go through the text one below the other.
TEST(Kernels, EditStripe) {
  on_random_texts([](Bytes text, std::mt19937& random) {
    if (!has_edit_stripe()) return;
    const std::size_t rows = 1 + random() % (64 * kStripeWords);
    std::uint64_t equal[256][kStripeWords] = {};
    for (std::size_t i = 0; i < rows && !text.empty(); ++i) {
      equal[text[random() % text.size()]][i / 64] |= std::uint64_t{1} << i % 64;
    }
    for (std::uint64_t& word : equal[0]) word = 0;
    std::vector<EditRun> runs((text.size() + 63) / 64);
    for (EditRun& run : runs) {
      run.rose = random() * std::uint64_t{random()};
      run.fell = random() * std::uint64_t{random()} & ~run.rose;
    }
    const std::vector<EditRun> above = runs;
    cross_edit_stripe(equal, rows, text, runs.data());
    EditColumn columns[kStripeWords];
    for (std::size_t i = 0; i < 64 * runs.size(); ++i) {
      EditChange change = above[i / 64].at(i % 64);
      for (std::size_t w = 0; 64 * w < rows && i < text.size(); ++w) {
        const std::size_t bottom = std::min<std::size_t>(rows - 64 * w, 64) - 1;
        change = columns[w].advance(equal[text[i]][w], change, bottom);
      }
      if (i >= text.size()) change = {};
      ASSERT_EQ(change.rose, runs[i / 64].at(i % 64).rose);
      ASSERT_EQ(change.fell, runs[i / 64].at(i % 64).fell);
    }
  });
}

// The alignments of whole blocks; what is left belongs to the caller, and without vectors all is.
TEST(Kernels, FindNear) {
  everywhere([](Bytes text, std::mt19937& random) {
    const std::size_t m = random() % (text.size() + 1);
    const std::size_t end = text.size() - m + 1;
    Bytes pattern = text.subspan(random() % end, m);
    const std::size_t k = random() % 3 == 0 ? kMaxNear : random() % (m / 4 + 2);
    std::size_t next = 0;
    Byte counts[kNearBlock];
    for (std::size_t at = 0;; at += kNearBlock) {
      const std::uint32_t near = find_near(pattern, text, k, at, end, counts);
      for (; next < at + (near == 0 ? 0 : kNearBlock); ++next) {
        std::size_t count = 0;
        for (std::size_t j = 0; j < m; ++j) count += pattern[j] != text[next + j] ? 1U : 0U;
        const bool is_near = near != 0 && next >= at && (near >> (next - at) & 1U) != 0;
        ASSERT_EQ(count <= k, is_near);
        ASSERT_TRUE(!is_near || count == counts[next - at]);
      }
      if (near != 0) continue;
      EXPECT_TRUE(!has_avx2() || end - at < kNearBlock);
      return;
    }
  });
}

// It may stop too often: never behind a place where a prefix stands, and, with sets that the two
// halves of a byte decide, at no other.
TEST(Kernels, PrefixFilter) {
  everywhere([](Bytes text, std::mt19937& random) {
    const std::size_t length = 2 + random() % (PrefixFilter::kMaxLength - 1);
    const std::size_t prefixes = 1 + random() % PrefixFilter::kPrefixes;
    const bool is_exact = random() % 2 == 0;
    PrefixFilter filter;
    std::vector<std::vector<ByteSet>> sets(prefixes);
    for (std::size_t p = 0; p < prefixes; ++p) {
      for (std::size_t i = 0; i < length; ++i) {
        sets[p].push_back(random_set(random, is_exact ? 0 : random() % 8));
        if (!text.empty()) sets[p][i].add(text[random() % text.size()]);
        filter.add(p, i, sets[p][i]);
      }
    }
    const auto stands = [&](std::size_t place) {
      for (const std::vector<ByteSet>& prefix : sets) {
        std::size_t i = 0;
        while (i < length && prefix[i].has(text[place + i])) ++i;
        if (i == length) return true;
      }
      return false;
    };
    const std::size_t end = text.size() < length ? 0 : text.size() - length + 1;
    const std::size_t at = end == 0 ? 0 : random() % end;
    const std::size_t expected = first_place(at, end, npos, stands);
    const std::size_t found = filter.find(length, text, at);
    EXPECT_LE(found, expected);
    EXPECT_TRUE(!is_exact || found == expected);
  });
}

}  // namespace
}  // namespace vstring_test
