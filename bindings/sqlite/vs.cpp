// vs(expression, ...).
#include <memory>

#include "expression.h"
#include "functions.h"
#include "language/failure.h"

SQLITE_EXTENSION_INIT3

namespace vstring_sqlite {
namespace {

constexpr const char* kName = "vs";

// An expression that is constant in a statement is kept with it.
void run(sqlite3_context* context, int count, sqlite3_value** values) {
  try {
    const Arguments arguments(values, static_cast<std::size_t>(count));
    if (arguments.empty()) throw velmor::Failure("expecting an expression");
    if (has_null(arguments)) return;
    auto* expression = static_cast<Expression*>(sqlite3_get_auxdata(context, 0));
    std::unique_ptr<Expression> made;
    if (expression == nullptr) {
      made = std::make_unique<Expression>(bytes_of(arguments[0]));
      expression = made.get();
    }
    {
      Use use;
      const Arguments behind = arguments.subspan(1);
      set_result(context, expression->value(use, behind), texts_of(behind));
    }
    if (made != nullptr)
      sqlite3_set_auxdata(context, 0, made.release(),
                          [](void* e) { delete static_cast<Expression*>(e); });
  } catch (...) {
    set_error(context, kName);
  }
}

}  // namespace

int add_vs(sqlite3* db) try {
  return sqlite3_create_function_v2(db, kName, -1, kFunctionFlags, new Hold, run, nullptr, nullptr,
                                    [](void* hold) { delete static_cast<Hold*>(hold); });
} catch (...) {
  return SQLITE_NOMEM;
}

}  // namespace vstring_sqlite
