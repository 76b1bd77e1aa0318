// Every function, called with values of every kind.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "connection.h"

namespace vstring_sqlite_test {
namespace {

constexpr std::int64_t kIntegers[] = {
    0, 1, 2, 3, 5, -1, -2, 8, 64, 255, 256, 5000, INT32_MAX, INT32_MIN, INT64_MAX, INT64_MIN};
constexpr double kReals[] = {0.5, -1.0, 1e300, std::numeric_limits<double>::infinity()};
const std::vector<std::string> kWords = {
    "a",        "ab",     "banana", "kitten sitting", "lower", "utf8",     "hex",
    "base64",   "left",   "md5",    "builtin",        "[a-c]", "(a|b)+c?", "%1 %-2",
    "%Y-%m-%d", "né\xff", "osa",    "The cat. Sat!",  "ACGT",  "()[]"};
const std::vector<std::string> kJson = {"[\"a\",\"b\"]",
                                        "[]",
                                        "[[1,2],\"x\"]",
                                        "{\"a\":1,\"b\":3}",
                                        "[{\"a\":\"ab\"},{\"b\":\"a\"}]",
                                        "{\"..\":[2,3]}",
                                        "{\"..\":[-1,\"a\"]}",
                                        "{\"method\":\"md4\"}",
                                        "true",
                                        "null",
                                        "[null]",
                                        "\"\\udcff\\ud83d\"",
                                        "[\"a\\u0000\"]",
                                        "12345678901234567890123",
                                        "-1.5e9",
                                        "{\"obeylines\":true}",
                                        "[1,2",
                                        "{\"a\"",
                                        "\"\\u12\"",
                                        "[01]",
                                        "tru",
                                        "",
                                        "[1]x",
                                        "{\"a\":{\"b\":[{}]}}"};
const std::vector<std::string> kExpressions = {"_1",
                                               "_2, _1",
                                               "map(x -> cap(x, _1, _2), _1)",
                                               "search(_1, _2)",
                                               "[_1, {_2}]",
                                               "_1[_2]",
                                               "_1 + _2",
                                               "_1 = _2",
                                               "_1 .. _2",
                                               "tally(_1)",
                                               "apply(x -> x, _1)",
                                               "regmatch(_1, _2, m), m",
                                               "foldl((r, c) -> [r, c], _1, _2)",
                                               "_1 < _2",
                                               "take(_1",
                                               "k := _1, k",
                                               "size(_1)",
                                               "'f(_1)'"};

class RandomQuery {
 public:
  explicit RandomQuery(Connection& db) : db_(db) {
    const std::string names = db.run(
                                    "SELECT DISTINCT name FROM pragma_function_list "
                                    "WHERE name GLOB 'vs_*' ORDER BY name")
                                  .text;
    for (std::size_t at = 0, end; at < names.size(); at = end + 1) {
      end = std::min(names.find('\n', at), names.size());
      names_.push_back(names.substr(at, end - at));
    }
    const auto mark = [](sqlite3_context* context, int, sqlite3_value** values) {
      sqlite3_result_value(context, values[0]);
      sqlite3_result_subtype(context, 'J');
    };
    sqlite3_create_function(db.get(), "mark", 1, SQLITE_UTF8, nullptr, mark, nullptr, nullptr);
  }

  // What is wrong with the answer to one.
  std::string next() {
    sqlite3_stmt* statement = nullptr;
    const std::string sql = query();
    if (sqlite3_prepare_v2(db_.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
      return sql + ": " + sqlite3_errmsg(db_.get());
    for (int i = 1; i <= sqlite3_bind_parameter_count(statement); ++i) bind(statement, i);
    int code;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW)
      if (sqlite3_column_int(statement, 1) == 0) return sql + " gave bad JSON";
    const std::string message = sqlite3_errmsg(db_.get());
    sqlite3_finalize(statement);
    answers_ += code == SQLITE_DONE;
    const bool is_sound = code == SQLITE_DONE || code == SQLITE_TOOBIG || code == SQLITE_NOMEM ||
                          (code == SQLITE_ERROR && message.starts_with("vs"));
    return is_sound ? "" : sql + ": " + message;
  }

  std::size_t answers() const { return answers_; }

 private:
  std::size_t below(std::size_t n) { return engine_() % n; }
  template <typename Range>
  const auto& one_of(const Range& range) {
    return range[below(std::size(range))];
  }

  std::string query() {
    std::string arguments;
    is_json_.assign(below(8) == 0 ? below(9) : 1 + below(3), false);
    for (std::size_t i = 0; i < is_json_.size(); ++i) {
      is_json_[i] = below(5) == 0;
      arguments += (i > 0 ? ", " : "") + std::string(is_json_[i] ? "mark(?)" : "?");
    }
    const std::size_t kind = below(12);
    const std::string expression =
        "'" + doubled(one_of(kExpressions)) + "'" + (arguments.empty() ? "" : ", ") + arguments;
    if (kind == 0) return "SELECT value, position > 0 FROM vs_each(" + expression + ") LIMIT 100";
    const std::string call =
        kind == 1 ? "vs(" + expression + ")" : one_of(names_) + "(" + arguments + ")";
    // The outer call looks at the subtype: what is no JSON is an error there.
    return "SELECT r, coalesce(vs('_1', r) IS r OR typeof(r) = 'blob' OR r LIKE '%null%' OR r LIKE "
           "'%{%', 1) FROM (SELECT " +
           call + " AS r LIMIT 1)";
  }

  static std::string doubled(const std::string& text) {
    std::string result;
    for (const char c : text) result.append(c == '\'' ? 2 : 1, c);
    return result;
  }

  void bind(sqlite3_stmt* statement, int i) {
    const bool is_json = is_json_[static_cast<std::size_t>(i - 1)];
    const std::size_t kind = is_json ? 4 : below(16);
    if (kind == 0 && below(3) == 0) return;  // NULL
    if (kind == 1) {
      sqlite3_bind_double(statement, i, one_of(kReals));
    } else if (kind == 2) {
      sqlite3_bind_zeroblob(statement, i, static_cast<int>(below(3)));
    } else if (kind == 3 && below(4) == 0) {
      sqlite3_bind_pointer(statement, i, this, "random", nullptr);
    } else if (kind < 8 && !is_json) {
      sqlite3_bind_int64(statement, i, one_of(kIntegers));
    } else {
      const std::string text = is_json ? one_of(kJson) : random_text();
      const int size = static_cast<int>(text.size());
      if (kind == 15)
        sqlite3_bind_blob(statement, i, text.data(), size, SQLITE_TRANSIENT);
      else
        sqlite3_bind_text(statement, i, text.data(), size, SQLITE_TRANSIENT);
    }
  }

  std::string random_text() {
    if (below(2) == 0) return one_of(kWords);
    std::string text(below(10) == 0 ? below(9000) : below(9), 'a');
    const bool any = below(3) == 0;
    for (char& c : text) c = static_cast<char>(any ? below(256) : 'a' + below(4));
    return text;
  }

  Connection& db_;
  std::mt19937 engine_{20260117};
  std::vector<std::string> names_;
  std::vector<bool> is_json_;
  std::size_t answers_ = 0;
};

// So much memory and no more in its lifetime: some commands take as much as they are told to.
// (A sanitizer's own memory does not fit; it has a limit for each allocation.)
class LittleMemory {
 public:
  LittleMemory() {
    getrlimit(RLIMIT_AS, &before_);
    rlimit little = before_;
    little.rlim_cur = std::size_t{512} << 20;
#ifndef __SANITIZE_ADDRESS__
    EXPECT_EQ(0, setrlimit(RLIMIT_AS, &little));
#endif
  }
  ~LittleMemory() { setrlimit(RLIMIT_AS, &before_); }
  LittleMemory(const LittleMemory&) = delete;
  LittleMemory& operator=(const LittleMemory&) = delete;

 private:
  rlimit before_{};
};

TEST(SqliteRandomCalls, AreSound) {
  const LittleMemory little_memory;
  const char* const wanted = std::getenv("VSTRING_RANDOM_CALLS");
  const std::size_t calls = wanted != nullptr ? std::stoul(wanted) : 6000;
  Connection db;
  sqlite3_limit(db.get(), SQLITE_LIMIT_LENGTH, 1 << 20);
  RandomQuery random(db);
  testing::internal::CaptureStderr();  // some commands write there
  testing::internal::CaptureStdout();
  std::string problem;
  for (std::size_t i = 0; i < calls && problem.empty(); ++i) problem = random.next();
  testing::internal::GetCapturedStderr();
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(problem, "");
  std::printf("%zu of %zu random calls gave an answer.\n", random.answers(), calls);
}

}  // namespace
}  // namespace vstring_sqlite_test
