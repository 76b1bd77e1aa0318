// Commands by what they are about.
#pragma once
#include <string_view>
#include <vector>

#include "lexiva/commands.h"

namespace velmor {

// The commands that match each of the words in their name, keywords or help, best first: a name
// counts more than a keyword, a word itself more than one that begins so or, with `slips`, differs
// by a slip of the finger. Empty when there is none.
std::vector<const lexiva::Command*> search_commands(std::string_view words, bool slips);

}  // namespace velmor
