// Pool and containers, through the exported C routines.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "host/vstring.h"
#include "support/allocations.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

class PoolTest : public testing::Test {
 protected:
  void TearDown() override { pool_destroy(&pool_); }
  int blocks_in_use() const {
    int n = 0;
    for (const VstringBlock* b = pool_.cursor->block; b != nullptr; b = b->previous) ++n;
    return n;
  }
  VstringPool pool_ = {};
};

TEST_F(PoolTest, RoundsRequestsAndReusesSpares) {
  ASSERT_NE(nullptr, pool_init(&pool_));
  EXPECT_EQ(nullptr, pool_alloc(&pool_, 0)) << "no block yet, and none taken";
  EXPECT_EQ(nullptr, pool_alloc0(&pool_, 0, 8));
  auto* const first = static_cast<char*>(pool_alloc(&pool_, 10000));
  ASSERT_NE(nullptr, first);
  EXPECT_EQ(0U, reinterpret_cast<std::uintptr_t>(first) % 16);
  EXPECT_EQ(18124, pool_.cursor->end - reinterpret_cast<char*>(pool_.cursor->block));
  EXPECT_EQ(first + 10000, pool_alloc(&pool_, 1));
  EXPECT_EQ(first + 10016, pool_alloc(&pool_, 0));

  pool_free(&pool_);
  EXPECT_EQ(1, pool_.spare_count);
  EXPECT_EQ(first, pool_alloc(&pool_, 18080)) << "the largest request that the spare serves";
  EXPECT_EQ(0, pool_.spare_count);
  pool_free(&pool_);
  EXPECT_NE(first, pool_alloc(&pool_, 18081));
  EXPECT_EQ(2, blocks_in_use()) << "a spare that is too small stays pushed";
}

TEST_F(PoolTest, KeepsTenSpares) {
  ASSERT_NE(nullptr, pool_init(&pool_));
  for (int i = 0; i < 11; ++i) ASSERT_NE(nullptr, pool_alloc(&pool_, 100000));
  const std::size_t live = live_blocks();
  pool_free(&pool_);
  EXPECT_EQ(10, pool_.spare_count);
  EXPECT_EQ(live - 1, live_blocks());
}

TEST_F(PoolTest, AbsurdSizesAreFailures) {
  EXPECT_EQ(nullptr, pool_init(nullptr));
  ASSERT_NE(nullptr, pool_init(&pool_));
  EXPECT_EQ(nullptr, pool_alloc(&pool_, SIZE_MAX));
  EXPECT_EQ(nullptr, pool_alloc(&pool_, SIZE_MAX - 8200));
  EXPECT_EQ(nullptr, pool_alloc0(&pool_, SIZE_MAX / 2, 3));
  EXPECT_EQ(nullptr, pool_strdup(nullptr, "x"));
  EXPECT_EQ(0, blocks_in_use());
  EXPECT_STREQ("kept", pool_strdup(&pool_, "kept"));
}

void check_list(auto create, auto append, auto release) {
  const std::size_t live = live_blocks();
  auto* const list = create();
  ASSERT_NE(nullptr, list);
  for (std::uint32_t i = 0; i < 3000; ++i) ASSERT_EQ(list, append(list, i));
  EXPECT_EQ(3000U, list->count);
  std::uint32_t expected = 0;
  for (auto* node = list->head; node != nullptr; node = node->next) {
    EXPECT_EQ(expected++, node->value);
  }
  release(list);
  release(list);
  EXPECT_EQ(nullptr, list->pool);
  EXPECT_EQ(nullptr, append(list, 1)) << "no pool, no node";
  std::free(list);
  EXPECT_EQ(live, live_blocks());
}

TEST(List, AppendsInOrderAndIsFreedTwice) {
  check_list(list_create, list_append, list_free);
  check_list(il_create, il_append, il_free);
}

// Walks a list whose first ten elements are above a bound only in the fourth place.
void check_iteration(auto* list, auto append, auto iterate, auto release, auto up_to_three) {
  int calls = 0;
  EXPECT_EQ(1, iterate(list, up_to_three, &calls));
  for (std::uintptr_t i = 0; i < 10; ++i) append(list, i);
  EXPECT_EQ(0, iterate(list, up_to_three, &calls)) << "it stops when told to";
  EXPECT_EQ(4, calls);
  EXPECT_EQ(1, iterate(
                   list, [](auto, void*) { return 1; }, nullptr));
  EXPECT_EQ(-1, iterate(nullptr, up_to_three, &calls));
  EXPECT_EQ(-1, iterate(list, nullptr, nullptr));
  release(list);
  std::free(list);
}

TEST(List, IterationStopsAndAnswers) {
  const auto number = [](std::uintptr_t value, void* calls) {
    *static_cast<int*>(calls) += 1;
    return value < 3 ? 1 : 0;
  };
  const auto text = [](const char* value, void* calls) {
    *static_cast<int*>(calls) += 1;
    return *value < '3' ? 1 : 0;
  };
  check_iteration(list_create(), list_append, list_iter, list_free, number);
  const auto append_digit = [](VstringStringList* list, std::uintptr_t i) {
    sl_append(list, std::to_string(i).c_str());
  };
  check_iteration(sl_create(), append_digit, sl_iter, sl_free, text);
  EXPECT_EQ(UINT32_MAX, list_size(nullptr));
}

TEST(StringList, BecomesASequence) {
  VstringStringList* const list = sl_create();
  for (const char* text : {"one", "", "three"}) EXPECT_EQ(list, sl_append(list, text));
  EXPECT_EQ(list, sl_append(list, nullptr));
  fail_allocation(1);
  EXPECT_EQ(nullptr, sl_append(list, std::string(20000, 'x').c_str()));
  fail_allocation(0);
  EXPECT_EQ(nullptr, list->tail->next);

  static VstringStringList* shared;
  shared = list;
  const VelmorCommand convert = [](const HostTable* host, HostObject) {
    return sl_toexpseq(host, shared, 4);
  };
  EXPECT_EQ(R"("one", "", "three", "")", call(convert, {})) << "a null text is the last";
  sl_free(list);
  std::free(list);
}

std::vector<std::string> visited;

TEST(Table, ReplacesAndIteratesBucketByBucket) {
  EXPECT_EQ(nullptr, table_new(UINT32_MAX - 1));
  const std::size_t live = live_blocks();
  for (const auto& [n, buckets] : {std::pair{0U, 6U}, {1U, 6U}, {7U, 12U}}) {
    VstringTable* const sized = table_new(n);
    EXPECT_EQ(buckets, sized->bucket_count);
    table_free(sized);
  }
  VstringTable* const table = table_new(0);
  // Hashes worked out by hand, modulo 6. "\xe9" is sign-extended to 0xffffffe9; the fifth byte of
  // "abcde" enters as (0x61626364 << 1 | 0x61626364 >> 27) ^ 'e'.
  const auto bucket_of = [](std::uint32_t hash) { return hash % 6; };
  const std::vector<std::pair<const char*, std::uint32_t>> keys = {{"a", 0x61},
                                                                   {"ab", 0x6162},
                                                                   {"\xe9", 0xffffffe9},
                                                                   {"a\xe9", 0xffffffe9},
                                                                   {"abcde", 0xc2c4c6cc ^ 0x65}};
  for (const auto& [key, hash] : keys) {
    VstringTableEntry* const entry = table_insert(table, key, 1);
    ASSERT_NE(nullptr, entry);
    EXPECT_EQ(entry, table->buckets[bucket_of(hash)]) << key << " stands at its bucket's head";
  }
  EXPECT_EQ(table_search(table, "ab"), table_insert(table, "ab", 2));
  EXPECT_EQ(2U, table_search(table, "ab")->value);
  EXPECT_EQ(keys.size(), table->entry_count);
  EXPECT_EQ(nullptr, table_search(table, "abc"));
  EXPECT_EQ(nullptr, table_insert(table, nullptr, 0));
  EXPECT_EQ(nullptr, table_search(nullptr, "a"));
  EXPECT_EQ(0, table_iter(table, nullptr));
  visited.clear();
  EXPECT_EQ(1, table_iter(table, [](const char* key, std::uintptr_t) {
              visited.push_back(key);
              return 1;
            }));
  EXPECT_EQ(keys.size(), visited.size());
  EXPECT_EQ(0, table_iter(table, [](const char* key, std::uintptr_t) {
              visited.push_back(key);
              return visited.size() < 7 ? 1 : 0;
            }));
  EXPECT_EQ(7U, visited.size()) << "it stops when told to";
  table_free(table);
  EXPECT_EQ(live, live_blocks());
}

TEST(BitVector, CountsWholeWordsOnly) {
  VstringBitVector bits;
  ASSERT_NE(nullptr, bv_init(&bits, 40));
  bv_set(&bits, 0);
  bv_set(&bits, 39);
  EXPECT_EQ(1, bv_get(&bits, 39));
  EXPECT_EQ(1U, bv_count(&bits)) << "the last, partial word is not counted";
  bv_reset(&bits, 0);
  EXPECT_EQ(0U, bv_count(&bits));
  std::free(bits.words);
  fail_allocation(1);
  EXPECT_EQ(nullptr, bv_init(&bits, 8));
}

// With each allocation failing.
void check_constructor(auto make, auto release) {
  const std::size_t live = live_blocks();
  for (std::size_t k = 1; k < 8; ++k) {
    fail_allocation(k);
    auto* const made = make();
    const bool failed = allocation_failed();
    fail_allocation(0);
    EXPECT_EQ(failed, made == nullptr) << k;
    if (made != nullptr) release(made);
    EXPECT_EQ(live, live_blocks()) << k;
  }
}

TEST(Containers, ConstructorsFailCleanly) {
  const auto both = [](auto release) {
    return [=](auto* container) {
      release(container);
      std::free(container);
    };
  };
  check_constructor(pool_create, both(pool_destroy));
  check_constructor(list_create, both(list_free));
  check_constructor(il_create, both(il_free));
  check_constructor(sl_create, both(sl_free));
  check_constructor([] { return table_new(9); }, table_free);
}

}  // namespace
}  // namespace vstring_test
