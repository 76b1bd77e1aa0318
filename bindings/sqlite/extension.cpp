// The entry point: SQLite calls it when a connection loads the extension.
#include <sqlite3ext.h>

#include <initializer_list>

#include "functions.h"

SQLITE_EXTENSION_INIT1

extern "C" __attribute__((visibility("default"))) int sqlite3_vstringsqlite_init(
    sqlite3* db, char** message, const sqlite3_api_routines* api);

int sqlite3_vstringsqlite_init(sqlite3* db, char** message, const sqlite3_api_routines* api) {
  SQLITE_EXTENSION_INIT2(api);
  constexpr int kOldest = 3031000;  // knows which functions are innocuous
  if (sqlite3_libversion_number() < kOldest) {
    *message = sqlite3_mprintf("vstring needs SQLite 3.31 or later");
    return SQLITE_ERROR;
  }
  int result = SQLITE_OK;
  for (const auto add :
       {vstring_sqlite::add_commands, vstring_sqlite::add_vs, vstring_sqlite::add_vs_each})
    if (result == SQLITE_OK) result = add(db);
  return result;
}
