// vs_COMMAND(...): each command as a function of SQL.
#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "functions.h"
#include "language/failure.h"
#include "lexiva/commands.h"
#include "library.h"
#include "values.h"

SQLITE_EXTENSION_INIT3

namespace vstring_sqlite {
namespace {

// Commands whose answer hangs on more than their arguments: seeds, dictionaries, clock and time
// zone, what was traced before. config and the wildcard tests print.
constexpr std::string_view kImpure[] = {"random",        "randperm",  "ipsum",       "stem",
                                        "fmttime",       "parsetime", "dictObjSize", "dictObjGet",
                                        "dictObjSearch", "config",    "wildTest",    "wildTester"};

// Commands that change what others answer: for statements that a user writes, not for the views and
// triggers of a database from elsewhere.
constexpr std::string_view kChanging[] = {"randomise", "dictCreate", "dictObjFree"};

int flags_of(std::string_view command) {
  if (std::ranges::count(kChanging, command) > 0) return kFunctionFlags | SQLITE_DIRECTONLY;
  if (std::ranges::count(kImpure, command) > 0) return kFunctionFlags;
  return kFunctionFlags | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
}

struct Function {
  std::string name;
  VelmorCommand command;  // null for vs_range
  Hold hold = {};
};

HostObject range_of(Use& use, HostObject argseq) {
  if (velmor_size(argseq) != 2)
    throw velmor::Failure("expecting 2 arguments, but got " + std::to_string(velmor_size(argseq)));
  const HostObject range =
      velmor_range(use.heap(), velmor_element(argseq, 1), velmor_element(argseq, 2));
  if (range == 0) throw std::bad_alloc();
  return range;
}

HostObject result_of(const Function& function, Use& use, HostObject argseq) {
  if (argseq == 0) throw std::bad_alloc();
  if (function.command == nullptr) return range_of(use, argseq);
  HostObject result = 0;
  if (velmor_call(use.heap(), function.command, argseq, &result) == 0)
    throw velmor::Failure(velmor_error(use.heap()));
  return result;
}

void run(sqlite3_context* context, int count, sqlite3_value** values) {
  const Function& function = *static_cast<const Function*>(sqlite3_user_data(context));
  try {
    const Arguments arguments(values, static_cast<std::size_t>(count));
    if (has_null(arguments)) return;
    Use use;
    std::vector<HostObject>& objects = use.arguments();
    append_objects(objects, use.heap(), arguments, "argument ");
    const HostObject argseq = velmor_sequence(use.heap(), objects.size(), objects.data());
    set_result(context, result_of(function, use, argseq), texts_of(arguments));
  } catch (...) {
    set_error(context, function.name.c_str());
  }
}

int add(sqlite3* db, const std::string& name, int flags, VelmorCommand command) try {
  auto function = std::make_unique<Function>(Function{"vs_" + name, command});
  const char* const sql_name = function->name.c_str();
  return sqlite3_create_function_v2(db, sql_name, -1, flags, function.release(), run, nullptr,
                                    nullptr, [](void* f) { delete static_cast<Function*>(f); });
} catch (...) {
  return SQLITE_NOMEM;
}

}  // namespace

int add_commands(sqlite3* db) {
  int result = add(db, "range", kFunctionFlags | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr);
  const auto bind = [&](const char* name, const velmor::lexiva::Command& command) {
    if (result == SQLITE_OK)
      result = add(db, name, flags_of(command.name), entry_point(command.entry_point));
  };
  for (const velmor::lexiva::Family& family : velmor::lexiva::families())
    for (const velmor::lexiva::Command& command : family.commands) bind(command.name, command);
  for (const velmor::lexiva::Alias& alias : velmor::lexiva::aliases())
    bind(alias.name, *velmor::lexiva::find(alias.command));
  return result;
}

}  // namespace vstring_sqlite
