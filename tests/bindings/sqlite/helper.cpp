// For the tests: values that SQL alone cannot make, and allocations that fail. To be preloaded, so
// that operator new is this one everywhere, and loaded as an extension.
#include <sqlite3ext.h>

#include <atomic>
#include <cstdlib>
#include <new>

SQLITE_EXTENSION_INIT1

namespace {

std::atomic<long> allocations_left = -1;  // until one fails; negative for none

// mark(x): x with the subtype of JSON, whatever it is.
void mark(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  sqlite3_result_value(context, values[0]);
  sqlite3_result_subtype(context, 'J');
}

void pointer(sqlite3_context* context, int /*count*/, sqlite3_value** /*values*/) {
  sqlite3_result_pointer(context, &allocations_left, "helper", nullptr);
}

// fail_new(k): the k-th use of operator new from now throws; gives what was left of the last k.
void fail_new(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  sqlite3_result_int64(context, allocations_left.exchange(sqlite3_value_int64(values[0])));
}

}  // namespace

void operator delete(void* block, std::size_t size) noexcept;

void* operator new(std::size_t n) {
  const bool fails = allocations_left >= 0 && allocations_left-- == 1;
  if (void* const block = fails ? nullptr : std::malloc(n)) return block;
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }

extern "C" int sqlite3_helper_init(sqlite3* db, char** message, const sqlite3_api_routines* api);

int sqlite3_helper_init(sqlite3* db, char** /*message*/, const sqlite3_api_routines* api) {
  SQLITE_EXTENSION_INIT2(api);
  sqlite3_create_function(db, "mark", 1, SQLITE_UTF8, nullptr, mark, nullptr, nullptr);
  sqlite3_create_function(db, "pointer", 0, SQLITE_UTF8, nullptr, pointer, nullptr, nullptr);
  return sqlite3_create_function(db, "fail_new", 1, SQLITE_UTF8, nullptr, fail_new, nullptr,
                                 nullptr);
}
