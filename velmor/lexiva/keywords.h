// Other words under which a command is looked for than those of its help.
#pragma once
#include <string_view>

namespace velmor::lexiva {

// Blanks between; empty when the command has none.
std::string_view keywords(std::string_view command);

}  // namespace velmor::lexiva
