// The table vs_each(expression, ...): a row for each item of a value.
#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "expression.h"
#include "functions.h"
#include "heap/object.h"
#include "language/failure.h"

SQLITE_EXTENSION_INIT3

namespace vstring_sqlite {
namespace {

constexpr const char* kName = "vs_each";

// The hidden columns, which are the arguments, come last. There are as many as a function has.
enum Column { kValue, kPosition, kExpression };
constexpr int kArguments = 127;

struct DeleteValue {
  void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};

class Cursor : public sqlite3_vtab_cursor {
 public:
  Cursor() : sqlite3_vtab_cursor{} {}
  ~Cursor() { release(); }
  Cursor(const Cursor&) = delete;
  Cursor& operator=(const Cursor&) = delete;

  void filter(Arguments arguments);
  void next() { ++position_; }
  bool at_end() const { return position_ > size_; }
  std::size_t position() const { return position_; }
  void column(sqlite3_context* context, int column) const;

 private:
  void release();
  void keep(Arguments arguments);

  std::vector<std::unique_ptr<sqlite3_value, DeleteValue>> arguments_;
  std::string source_;
  std::unique_ptr<Expression> expression_;
  HostObject value_ = 0;  // rooted
  Texts texts_ = Texts::kText;
  std::size_t size_ = 0, position_ = 1;
};

void Cursor::filter(Arguments arguments) {
  release();
  keep(arguments);
  if (arguments.empty()) throw velmor::Failure("expecting an expression");
  if (has_null(arguments)) return;
  // In a join every row comes here with the same one.
  const std::string_view source = bytes_of(arguments[0]);
  if (expression_ == nullptr || source != source_) {
    expression_ = std::make_unique<Expression>(source);
    source_ = source;
  }
  texts_ = texts_of(arguments.subspan(1));
  Use use;
  const HostObject value = expression_->value(use, arguments.subspan(1));
  velmor_root(use.heap(), value);
  value_ = value;
  size_ = velmor::elements_of(value_) != 0 ? velmor_size(value_) : 1;
}

void Cursor::release() {
  position_ = 1;
  size_ = 0;
  if (value_ == 0) return;
  Use use;
  velmor_unroot(use.heap(), std::exchange(value_, 0));
}

void Cursor::keep(Arguments arguments) {
  arguments_.clear();
  for (sqlite3_value* const value : arguments) {
    arguments_.emplace_back(sqlite3_value_dup(value));
    if (arguments_.back() == nullptr) throw std::bad_alloc();
  }
}

void Cursor::column(sqlite3_context* context, int column) const {
  if (column == kValue) {
    Use use;
    const bool has_items = velmor::elements_of(value_) != 0;
    set_result(context, has_items ? velmor_element(value_, position_) : value_, texts_);
  } else if (column == kPosition) {
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(position_));
  } else if (const auto i = static_cast<std::size_t>(column - kExpression); i < arguments_.size()) {
    sqlite3_result_value(context, arguments_[i].get());
  }
}

Cursor& cursor_of(sqlite3_vtab_cursor* cursor) { return *static_cast<Cursor*>(cursor); }

int connect(sqlite3* db, void* /*data*/, int /*count*/, const char* const* /*arguments*/,
            sqlite3_vtab** table, char** /*message*/) try {
  std::string columns = "CREATE TABLE x(value, position, expression HIDDEN";
  for (int i = 1; i < kArguments; ++i) columns += ", _" + std::to_string(i) + " HIDDEN";
  if (const int code = sqlite3_declare_vtab(db, (columns + ")").c_str()); code != SQLITE_OK)
    return code;
  *table = new sqlite3_vtab{};
  return SQLITE_OK;
} catch (...) {
  return SQLITE_NOMEM;
}

int disconnect(sqlite3_vtab* table) {
  delete table;
  return SQLITE_OK;
}

// The arguments are what the hidden columns have to equal, without a gap.
int best_index(sqlite3_vtab* /*table*/, sqlite3_index_info* info) {
  int constraint_of[kArguments];  // -1 for none
  std::ranges::fill(constraint_of, -1);
  bool must_wait[kArguments] = {};  // for a table that is to be read before
  for (int i = 0; i < info->nConstraint; ++i) {
    const auto& constraint = info->aConstraint[i];
    const int argument = constraint.iColumn - kExpression;
    if (argument < 0 || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) continue;
    if (constraint.usable != 0)
      constraint_of[argument] = i;
    else
      must_wait[argument] = true;
  }
  for (int i = 0; i < kArguments; ++i)
    if (must_wait[i] && constraint_of[i] < 0) return SQLITE_CONSTRAINT;
  int& count = info->idxNum;
  for (count = 0; count < kArguments && constraint_of[count] >= 0; ++count)
    info->aConstraintUsage[constraint_of[count]] = {count + 1, 1};
  info->estimatedCost = 10;
  info->estimatedRows = 10;
  info->orderByConsumed =
      info->nOrderBy == 1 && info->aOrderBy[0].iColumn == kPosition && info->aOrderBy[0].desc == 0;
  return SQLITE_OK;
}

int open(sqlite3_vtab* /*table*/, sqlite3_vtab_cursor** cursor) try {
  *cursor = new Cursor;
  return SQLITE_OK;
} catch (...) {
  return SQLITE_NOMEM;
}

int close(sqlite3_vtab_cursor* cursor) {
  delete &cursor_of(cursor);
  return SQLITE_OK;
}

int filter(sqlite3_vtab_cursor* cursor, int /*plan*/, const char* /*plan_text*/, int count,
           sqlite3_value** values) {
  try {
    cursor_of(cursor).filter({values, static_cast<std::size_t>(count)});
    return SQLITE_OK;
  } catch (...) {
    const std::string message = message_of_exception(kName);
    if (message.empty()) return SQLITE_NOMEM;
    sqlite3_free(cursor->pVtab->zErrMsg);
    cursor->pVtab->zErrMsg = sqlite3_mprintf("%s", message.c_str());
    return SQLITE_ERROR;
  }
}

int next(sqlite3_vtab_cursor* cursor) {
  cursor_of(cursor).next();
  return SQLITE_OK;
}

int at_end(sqlite3_vtab_cursor* cursor) { return cursor_of(cursor).at_end() ? 1 : 0; }

int column(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
  try {
    cursor_of(cursor).column(context, column);
  } catch (...) {
    set_error(context, kName);
  }
  return SQLITE_OK;
}

int row_id(sqlite3_vtab_cursor* cursor, sqlite3_int64* id) {
  *id = static_cast<sqlite3_int64>(cursor_of(cursor).position());
  return SQLITE_OK;
}

// Without xCreate, there is just the one table, which every connection has.
constexpr sqlite3_module make_module() {
  sqlite3_module module = {};
  module.xConnect = connect;
  module.xBestIndex = best_index;
  module.xDisconnect = disconnect;
  module.xOpen = open;
  module.xClose = close;
  module.xFilter = filter;
  module.xNext = next;
  module.xEof = at_end;
  module.xColumn = column;
  module.xRowid = row_id;
  return module;
}

constexpr sqlite3_module kModule = make_module();

}  // namespace

int add_vs_each(sqlite3* db) try {
  return sqlite3_create_module_v2(db, kName, &kModule, new Hold,
                                  [](void* hold) { delete static_cast<Hold*>(hold); });
} catch (...) {
  return SQLITE_NOMEM;
}

}  // namespace vstring_sqlite
