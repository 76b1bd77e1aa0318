// Help where one types: what `?take`, `help take` and `velmor help take` answer.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmor {

// The text for a request: empty for the list of families with their commands; a command, function,
// page or family ("regular"); "?words", or several words, to search. Nothing when there is none.
// With `exact`, a word alone is not searched for.
std::optional<std::string> help_text(std::string_view request, bool exact = false);

// What to say then, with a suggestion: "no help on tkae; did you mean take?"
std::string no_help(std::string_view request);

// All that help can be asked about by one word: commands, functions, pages.
std::vector<std::string> help_topics();

}  // namespace velmor
