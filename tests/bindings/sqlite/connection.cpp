#include "connection.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace vstring_sqlite_test {
namespace {

std::atomic<std::size_t> failing_allocation = 0;
thread_local bool in_sqlite = false;  // only there do allocations fail

// Whether this allocation is the one to fail.
bool fails_now() {
  if (!in_sqlite) return false;
  std::size_t k = failing_allocation.load();
  while (k > 0 && !failing_allocation.compare_exchange_weak(k, k - 1)) {
  }
  return k == 1;
}

template <typename Call>
int inside(Call call) {
  in_sqlite = true;
  const int code = call();
  in_sqlite = false;
  return code;
}

sqlite3_mem_methods methods;

// Before SQLite has allocated anything.
const bool is_wrapped = [] {
  sqlite3_config(SQLITE_CONFIG_GETMALLOC, &methods);
  sqlite3_mem_methods wrapped = methods;
  wrapped.xMalloc = [](int n) { return fails_now() ? nullptr : methods.xMalloc(n); };
  wrapped.xRealloc = [](void* p, int n) { return fails_now() ? nullptr : methods.xRealloc(p, n); };
  return sqlite3_config(SQLITE_CONFIG_MALLOC, &wrapped) == SQLITE_OK;
}();

std::string row_of(sqlite3_stmt* statement) {
  std::string row;
  for (int i = 0; i < sqlite3_column_count(statement); ++i) {
    if (i > 0) row += '|';
    const unsigned char* const bytes = sqlite3_column_text(statement, i);
    if (bytes == nullptr)
      row += "NULL";
    else
      row.append(reinterpret_cast<const char*>(bytes),
                 static_cast<std::size_t>(sqlite3_column_bytes(statement, i)));
  }
  return row;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
  return out << (answer.code == SQLITE_OK ? "" : "error: ") << answer.text;
}

Connection::Connection(const std::string& file) {
  EXPECT_TRUE(is_wrapped);
  EXPECT_EQ(SQLITE_OK, sqlite3_open(file.c_str(), &db_));
  sqlite3_enable_load_extension(db_, 1);
  char* message = nullptr;
  EXPECT_EQ(SQLITE_OK, sqlite3_load_extension(db_, VSTRING_SQLITE, nullptr, &message)) << message;
  sqlite3_free(message);
}

Connection::~Connection() { EXPECT_EQ(SQLITE_OK, sqlite3_close(db_)); }

Answer Connection::run(const std::string& sql, const std::vector<std::string>& parameters) {
  sqlite3_stmt* statement = nullptr;
  Answer answer;
  answer.code =
      inside([&] { return sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr); });
  for (std::size_t i = 0; i < parameters.size() && answer.code == SQLITE_OK; ++i)
    answer.code = sqlite3_bind_text(statement, static_cast<int>(i + 1), parameters[i].data(),
                                    static_cast<int>(parameters[i].size()), SQLITE_STATIC);
  while (answer.code == SQLITE_OK) {
    answer.code = inside([&] { return sqlite3_step(statement); });
    if (answer.code != SQLITE_ROW) break;
    answer.text += (answer.text.empty() ? "" : "\n") + row_of(statement);
    answer.code = SQLITE_OK;
  }
  if (answer.code == SQLITE_DONE)
    answer.code = SQLITE_OK;
  else
    answer.text = sqlite3_errmsg(db_);
  inside([&] { return sqlite3_finalize(statement); });
  return answer;
}

void fail_allocation(std::size_t k) { failing_allocation = k; }
bool allocation_has_failed() { return failing_allocation == 0; }

}  // namespace vstring_sqlite_test

void* operator new(std::size_t n) {
  if (!vstring_sqlite_test::fails_now())
    if (void* const p = std::malloc(n)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
