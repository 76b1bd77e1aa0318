#include "library.h"

#include <sqlite3ext.h>

#include <memory>
#include <unordered_map>
#include <utility>

SQLITE_EXTENSION_INIT3

namespace vstring_sqlite {
namespace {

struct Shared {
  Shared() : session([](const std::string& name) { return entry_point(name); }) {
    // What an expression prints has no place in SQL, and what it reads is the database.
    session.remove("table");
    session.remove("readfile");
    velmor_set_output(session.heap(), log_text, nullptr);
    velmor_set_userinfo(session.heap(), log_message, nullptr);
  }
  ~Shared() { vstringRelease(velmor_table(session.heap())); }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;

  static void log_text(void* /*context*/, const char* text) {
    sqlite3_log(SQLITE_NOTICE, "vstring: %s", text);
  }
  static void log_message(void* /*context*/, std::int64_t /*level*/, const char* package,
                          const char* text) {
    sqlite3_log(SQLITE_NOTICE, "%s: %s", package, text);
  }

  velmor::Session session;
  std::vector<HostObject> arguments;
};

std::mutex mutex;  // of all below, and of the library
std::size_t holds = 0;
std::unique_ptr<Shared> shared;

}  // namespace

Hold::Hold() {
  const std::lock_guard lock(mutex);
  if (shared == nullptr) shared = std::make_unique<Shared>();
  ++holds;
}

Hold::Hold(const Hold& /*other*/) : Hold() {}

Hold::~Hold() {
  const std::lock_guard lock(mutex);
  if (--holds == 0) shared.reset();
}

Use::Use() : lock_(mutex), locale_(vstring_bindings::c_locale()) {}

Use::~Use() { shared->session.collect_garbage(); }

velmor::Session& Use::session() { return shared->session; }

std::vector<HostObject>& Use::arguments() {
  shared->arguments.clear();
  return shared->arguments;
}

VelmorCommand entry_point(std::string_view name) {
  static const std::unordered_map<std::string_view, VelmorCommand> entry_points = {
#include "entry_points.inc"
  };
  const auto found = entry_points.find(name);
  return found == entry_points.end() ? nullptr : found->second;
}

}  // namespace vstring_sqlite
