// Connections, threads, encodings, limits, want of memory.
#include <gtest/gtest.h>
#include <malloc.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "connection.h"

namespace vstring_sqlite_test {
namespace {

TEST(SqliteSharing, StateIsForgottenWithTheLastConnection) {
  const std::string random = "SELECT vs_random(9, 'lower')", size = "SELECT vs_dictObjSize(1)";
  auto first = std::make_unique<Connection>();
  const std::string drawn = first->run(random).text;
  EXPECT_EQ(first->run("SELECT vs_dictCreate(json_array('a', 'b'))"), "1");
  auto second = std::make_unique<Connection>();
  EXPECT_EQ(second->run("SELECT vs_wslo('a', 'b', vs_tally('abb'))"), "-1");
  first.reset();
  EXPECT_EQ(second->run(size), "2");
  EXPECT_NE(second->run(random).text, drawn);
  second.reset();
  Connection third;
  EXPECT_EQ(third.run(size).code, SQLITE_ERROR);
  EXPECT_EQ(third.run(random), drawn);
}

// A statement may outlive its connection's end.
TEST(SqliteSharing, StatementsMayBeLeftOpen) {
  Connection other;
  sqlite3* db = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(":memory:", &db));
  sqlite3_enable_load_extension(db, 1);
  ASSERT_EQ(SQLITE_OK, sqlite3_load_extension(db, VSTRING_SQLITE, nullptr, nullptr));
  sqlite3_stmt* statement = nullptr;
  const char* const sql =
      "SELECT vs('map(x -> cap(x, _1, \"\"), \"ab\")', value) FROM vs_each('\"p\", \"q\"')";
  ASSERT_EQ(SQLITE_OK, sqlite3_prepare_v2(db, sql, -1, &statement, nullptr));
  ASSERT_EQ(SQLITE_ROW, sqlite3_step(statement));
  EXPECT_EQ(SQLITE_OK, sqlite3_close_v2(db));
  ASSERT_EQ(SQLITE_ROW, sqlite3_step(statement));
  EXPECT_STREQ("qaqb", reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
  EXPECT_EQ(SQLITE_OK, sqlite3_finalize(statement));
}

TEST(SqliteSharing, ThreadsHaveConnectionsOfTheirOwn) {
  const auto work = [](int n) {
    const std::string own = std::to_string(n);
    const std::string rows =
        "WITH c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c LIMIT 200) SELECT ";
    for (int i = 0; i < 20; ++i) {
      Connection db;
      // Equal weights count as smaller.
      EXPECT_EQ(db.run(rows + "sum(vs_wslo('a', 'b', json(printf('[{\"a\":" + own +
                       "},{\"b\":%d}]', x)))) FROM c"),
                std::to_string(2 * n - 202));
      EXPECT_EQ(
          db.run(rows + "sum(value) FROM c, vs_each('regmatch(\"(b)\", \"b\", k), _1, k = 1', " +
                 own + ") WHERE position = 2"),
          std::to_string(200 * n));
    }
  };
  std::vector<std::thread> threads;
  for (int i = 1; i <= 4; ++i) threads.emplace_back(work, i);
  for (std::thread& thread : threads) thread.join();
}

// On a stack too small for what an expression may ask for elsewhere.
TEST(SqliteSharing, ASmallStackIsEnough) {
  const auto work = [](void*) -> void* {
    Connection db;
    EXPECT_EQ(db.run("SELECT vs('apply(g -> g(g), [g -> g(g)])')").text,
              "vs: procedures call each other too deeply");
    const std::string deep = std::string(480, '[') + std::string(480, ']');
    EXPECT_EQ(db.run("SELECT vs('_1', json(?1))", {deep}), deep);
    EXPECT_EQ(db.run("SELECT vs(?1)", {deep}), deep);
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, std::size_t{1} << 20);
  pthread_t thread;
  ASSERT_EQ(0, pthread_create(&thread, &attributes, work, nullptr));
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

TEST(SqliteValues, DeepAndHugeOnesAreRefused) {
  Connection db;
  const std::string deep = std::string(501, '[') + std::string(501, ']');
  EXPECT_EQ(db.run("SELECT vs('_1', json(?1))", {deep}).text, "vs: _1: JSON nested too deeply");
  EXPECT_EQ(db.run("SELECT vs('_1', json(?1))", {std::string(5000, '[')}).code, SQLITE_ERROR);
  sqlite3_limit(db.get(), SQLITE_LIMIT_LENGTH, 1000);
  EXPECT_EQ(db.run("SELECT length(vs_repeat('a', 1000))"), "1000");
  for (const char* const call : {"vs_repeat('a', 1001)", "vs_explode(vs_repeat('a', 600))",
                                 "vs('repeat(\"a\", 1001)')", "vs_repeat(x'61', 5000000)"})
    EXPECT_EQ(db.run(std::string("SELECT ") + call).code, SQLITE_TOOBIG) << call;
}

TEST(SqliteValues, AreTheSameInUtf16) {
  Connection db;
  db.run("PRAGMA encoding = 'UTF-16le'");
  db.run("CREATE TABLE t(s)");
  db.run("INSERT INTO t VALUES ('né'), ('😀')");
  EXPECT_EQ(db.run("SELECT vs_length(s), vs_cap(s, '<', '>'), vs_words(s), vs('size(_1)', s), "
                   "vs_join(vs_explode(s), '') IS s FROM t"),
            "3|<né>|[\"né\"]|1|1\n4|<😀>|[\"😀\"]|1|1");
}

TEST(SqliteMemory, StaysFlat) {
  Connection db;
  const auto work = [&](int rows) {
    const std::string sql =
        "WITH c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c LIMIT " + std::to_string(rows) +
        ") SELECT sum(vs_length(vs_reverse(vs_cap(x, '<', '>'))) + vs('size(_1)', vs_explode(x)) + "
        "vs('foldl((r, c) -> size([r, c]), 0, \"' || x || '\")') + (SELECT count(*) FROM "
        "vs_each('explode(_1)', CAST(x AS TEXT)))) > 0 FROM c";
    EXPECT_EQ(db.run(sql).code, SQLITE_ERROR);  // x is no string
    std::string texts = sql;
    for (std::size_t at; (at = texts.find("(x,")) != texts.npos;) texts.replace(at, 3, "(x || '',");
    for (std::size_t at; (at = texts.find("(x))")) != texts.npos;)
      texts.replace(at, 4, "(x || ''))");
    EXPECT_EQ(db.run(texts), "1");
  };
  work(30000);
  const std::size_t before = mallinfo2().uordblks;
  work(300000);
  EXPECT_LT(mallinfo2().uordblks, before + (std::size_t{1} << 20));
}

// Each allocation of SQLite's and of the adapter's fails once, and nothing is lost by that.
TEST(SqliteMemory, WantOfItIsAnError) {
  Connection db;
  std::size_t failures = 0;
  for (const char* const sql :
       {"SELECT vs_words('one two three')", "SELECT vs_join(json_array('a', 'b'), '-')",
        "SELECT vs('map(c -> cap(c, _1, _1), \"abc\")', '-')",
        "SELECT value FROM vs_each('tally(_1)', 'banana')",
        "SELECT vs_wslo('a', 'b', json('[{\"a\":1}]'))"}) {
    const std::string expected = db.run(sql).text;
    for (std::size_t k = 1, answers = 0; answers < 1; ++k) {
      fail_allocation(k);
      const Answer answer = db.run(sql);
      ++(allocation_has_failed() ? failures : answers);
      fail_allocation(0);
      if (answer.code == SQLITE_OK)
        EXPECT_EQ(answer.text, expected) << sql << ", failure " << k;
      else
        EXPECT_TRUE(answer.text.find("memory") != answer.text.npos) << answer.text;
    }
    EXPECT_EQ(db.run(sql), expected);
  }
  EXPECT_GT(failures, 200);
}

}  // namespace
}  // namespace vstring_sqlite_test
