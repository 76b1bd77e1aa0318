// Commands by what they are about.
#pragma once
#include <string_view>
#include <vector>

#include "lexiva/commands.h"

namespace velmor {

// The commands that match each of the words in their name, keywords or help, best first: a name or
// keyword itself before one that begins so, before one that differs by a slip, before a word of the
// help. Empty when there is none.
std::vector<const lexiva::Command*> search_commands(std::string_view words);

}  // namespace velmor
