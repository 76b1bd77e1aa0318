// What Tab does to a line.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "language/session.h"

namespace velmor {

struct Completion {
  std::string inserted;  // at the cursor
  std::string shown;     // below the line: the words to choose from, or a signature
};

// The text before the cursor decides. In a string a tab is inserted. A word that begins names of
// commands, functions, option words, or names with a value, is completed as far as they agree; when
// one is left its signature is shown. Behind `name(` or a comma, it is that of the call.
Completion complete(Session& session, std::string_view before_cursor);

}  // namespace velmor
