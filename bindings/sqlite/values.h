// Values of SQL and of the host, there and back.
#pragma once
#include <sqlite3ext.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "heap/velmor_runtime.h"

namespace vstring_sqlite {

using Arguments = std::span<sqlite3_value* const>;

// Which type texts come back as.
enum class Texts { kText, kBlob };
Texts texts_of(Arguments arguments);  // BLOB if one of them is

bool has_null(Arguments arguments);  // NULL, or JSON's null

// The bytes of a TEXT or BLOB, until its value is asked for another one.
std::string_view bytes_of(sqlite3_value* value);

// Appends the objects of arguments that are not NULL. Throws velmor::Failure, which calls the first
// one `label` 1, and std::bad_alloc.
void append_objects(std::vector<HostObject>& objects, VelmorHeap* heap, Arguments arguments,
                    const std::string& label);

void set_result(sqlite3_context* context, HostObject value, Texts texts);

// What the exception that is being handled says, for SQL: "vs_take: second argument must be
// non-negative". Empty when memory is short.
std::string message_of_exception(const char* function) noexcept;

// The same as the result of a function.
void set_error(sqlite3_context* context, const char* function) noexcept;

}  // namespace vstring_sqlite
