// What the connections of a process share.
//
// The library has state for the whole process: seeds, dictionaries, the list that it read last, a
// value of its host's. So there is one host, one session of the language with one heap, however
// many connections there are, and one lock.
#pragma once
#include <mutex>
#include <string_view>
#include <vector>

#include "c_locale.h"
#include "language/session.h"

namespace vstring_sqlite {

// Holds all of it in memory. Each registered function has one, and SQLite frees functions after the
// statements that use them; with the last one everything is freed.
class Hold {
 public:
  Hold();
  Hold(const Hold& other);
  Hold& operator=(const Hold&) = delete;
  ~Hold();
};

// The library for this thread alone, while the scope lasts and something holds it. Not to be
// nested.
class Use {
 public:
  Use();
  ~Use();  // everything made in the meantime may be collected, unless it is rooted
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;

  velmor::Session& session();
  VelmorHeap* heap() { return session().heap(); }
  std::vector<HostObject>& arguments();  // to be filled; empty

 private:
  std::lock_guard<std::mutex> lock_;
  vstring_bindings::ThreadLocale locale_;
};

// The address of an entry point such as "vstring_reverse"; null when there is none.
VelmorCommand entry_point(std::string_view name);

}  // namespace vstring_sqlite
