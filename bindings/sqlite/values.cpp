#include "values.h"

#include <algorithm>
#include <bit>
#include <new>

#include "heap/big_integer.h"
#include "heap/object.h"
#include "heap/print.h"
#include "json.h"
#include "language/failure.h"

SQLITE_EXTENSION_INIT3

namespace vstring_sqlite {
namespace {

using velmor::Failure;

// The subtype by which SQLite's own functions know a TEXT that is JSON.
constexpr unsigned kJson = 'J';

bool is_json(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_TEXT && sqlite3_value_subtype(value) == kJson;
}

HostObject text_object(VelmorHeap* heap, sqlite3_value* value) {
  const std::string_view bytes = bytes_of(value);
  if (bytes.find('\0') != bytes.npos) throw Failure("a string cannot hold a zero byte");
  if (is_json(value)) return read_json(heap, bytes);
  return velmor_string_n(heap, bytes.data(), bytes.size());
}

HostObject object_of(VelmorHeap* heap, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return velmor_integer(heap, sqlite3_value_int64(value));
    case SQLITE_FLOAT:
      return velmor_float(heap, sqlite3_value_double(value));
    default:
      return text_object(heap, value);
  }
}

void set_text(sqlite3_context* context, std::string_view text, Texts texts) {
  if (texts == Texts::kBlob)
    sqlite3_result_blob64(context, text.data(), text.size(), SQLITE_TRANSIENT);
  else
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void set_name(sqlite3_context* context, std::string_view name) {
  if (name == "true" || name == "false")
    sqlite3_result_int(context, name == "true");
  else if (name == "FAIL")
    sqlite3_result_null(context);
  else
    set_text(context, name, Texts::kText);
}

void set_json(sqlite3_context* context, HostObject value) {
  std::string json;
  append_json(json, value);
  set_text(context, json, Texts::kText);
  sqlite3_result_subtype(context, kJson);
}

}  // namespace

Texts texts_of(Arguments arguments) {
  const auto is_blob = [](sqlite3_value* v) { return sqlite3_value_type(v) == SQLITE_BLOB; };
  return std::ranges::any_of(arguments, is_blob) ? Texts::kBlob : Texts::kText;
}

bool has_null(Arguments arguments) {
  return std::ranges::any_of(arguments, [](sqlite3_value* v) {
    return sqlite3_value_type(v) == SQLITE_NULL || (is_json(v) && bytes_of(v) == "null");
  });
}

std::string_view bytes_of(sqlite3_value* value) {
  const bool is_blob = sqlite3_value_type(value) == SQLITE_BLOB;
  const void* const bytes =
      is_blob ? sqlite3_value_blob(value) : static_cast<const void*>(sqlite3_value_text(value));
  const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
  if (bytes == nullptr && !(is_blob && size == 0)) throw std::bad_alloc();
  return {static_cast<const char*>(bytes), size};
}

void append_objects(std::vector<HostObject>& objects, VelmorHeap* heap, Arguments arguments,
                    const std::string& label) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    try {
      objects.push_back(object_of(heap, arguments[i]));
    } catch (const Failure& failure) {
      throw Failure(label + std::to_string(i + 1) + ": " + failure.what());
    }
    if (objects.back() == 0) throw std::bad_alloc();
  }
}

void set_result(sqlite3_context* context, HostObject value, Texts texts) {
  switch (velmor_tag(value)) {
    case HOST_TAG_STRING:
      return set_text(context, velmor::text_view(value), texts);
    case HOST_TAG_NAME:
      return set_name(context, velmor::text_view(value));
    case HOST_TAG_NEGATIVE:
    case HOST_TAG_NON_NEGATIVE:
      if (const auto small = velmor::to_int64(value)) return sqlite3_result_int64(context, *small);
      return set_text(context, velmor::print(value), Texts::kText);
    case velmor::kTagFloat:
      return sqlite3_result_double(context, std::bit_cast<double>(velmor::words(value)[1]));
    case HOST_TAG_SEQUENCE:
      if (velmor_size(value) == 0) return sqlite3_result_null(context);
      [[fallthrough]];
    case HOST_TAG_LIST:
    case HOST_TAG_SET:
    case HOST_TAG_EQUATION:
    case HOST_TAG_RANGE:
      return set_json(context, value);
    default:
      return set_text(context, velmor::print(value), Texts::kText);
  }
}

std::string message_of_exception(const char* function) noexcept try {
  const std::string prefix = function + std::string(": ");
  try {
    throw;
  } catch (const velmor::SyntaxError& error) {
    return prefix + error.what() + " (line " + std::to_string(error.line()) + ", column " +
           std::to_string(error.column()) + ")";
  } catch (const Failure& failure) {
    if (failure.what() == std::string_view("out of memory")) return "";
    return prefix + (failure.where().empty() ? "" : "(in " + failure.where() + ") ") +
           failure.what();
  }
} catch (...) {
  return "";
}

void set_error(sqlite3_context* context, const char* function) noexcept {
  const std::string message = message_of_exception(function);
  if (message.empty())
    sqlite3_result_error_nomem(context);
  else
    sqlite3_result_error(context, message.c_str(), -1);
}

}  // namespace vstring_sqlite
