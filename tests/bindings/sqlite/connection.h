// A connection that has loaded the extension.
#pragma once
#include <sqlite3.h>

#include <cstddef>
#include <string>
#include <vector>

namespace vstring_sqlite_test {

struct Answer {
  int code = SQLITE_OK;
  std::string text;  // the rows, their values with | between; or the message of the error
  bool operator==(const std::string& rows) const { return code == SQLITE_OK && text == rows; }
};
std::ostream& operator<<(std::ostream& out, const Answer& answer);

class Connection {
 public:
  explicit Connection(const std::string& file = ":memory:");
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // The parameters ?1, ?2, ... are texts.
  Answer run(const std::string& sql, const std::vector<std::string>& parameters = {});
  sqlite3* get() { return db_; }

 private:
  sqlite3* db_ = nullptr;
};

// Lets the k-th allocation from now, of SQLite or by `new`, fail; 0 disarms. Whether it has failed.
void fail_allocation(std::size_t k);
bool allocation_has_failed();

}  // namespace vstring_sqlite_test
