// Other words under which a command is looked for than those of its help.
#pragma once
#include <span>
#include <string_view>

namespace velmor::lexiva {

struct Keywords {
  std::string_view command, words;
};

std::span<const Keywords> all_keywords();

// Those of one, with blanks between; empty when the command has none.
std::string_view keywords(std::string_view command);

}  // namespace velmor::lexiva
