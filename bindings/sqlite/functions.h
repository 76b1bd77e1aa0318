// What the extension adds to a connection. Each function returns SQLite's code.
#pragma once
#include <sqlite3ext.h>

namespace vstring_sqlite {

int add_commands(sqlite3* db);  // vs_COMMAND(...), and vs_range(low, high)
int add_vs(sqlite3* db);        // vs(expression, ...)
int add_vs_each(sqlite3* db);   // the table vs_each(expression, ...)

// They look at subtypes and give them.
constexpr int kFunctionFlags = SQLITE_UTF8 | SQLITE_SUBTYPE |
                               0x01000000;  // SQLITE_RESULT_SUBTYPE, which old headers do not have

}  // namespace vstring_sqlite
