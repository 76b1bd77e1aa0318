// Long texts at a terminal.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace velmor {

struct Screen {
  std::size_t width = 80, height = 24;
};

// Of the terminal that standard output is, if it is one.
Screen screen();

// The text with lines broken at blanks to fit the width. What continues a line stands below its
// second column, if two blanks begin one, else two places further in than the line.
std::string fitted(std::string_view text, std::size_t width);

// Shows a text on standard output: fitted to a terminal, and through $PAGER, or less, when it has
// more lines than that.
void show_help(std::string_view text);

}  // namespace velmor
