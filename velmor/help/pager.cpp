#include "help/pager.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace velmor {
namespace {

bool is_plain_terminal() {
  const char* const term = std::getenv("TERM");
  return term == nullptr || std::string_view(term) == "dumb";
}

// False when there is no pager, or it did not want the text.
bool paged(const std::string& text) {
  const char* pager = std::getenv("PAGER");
  if (pager == nullptr || *pager == '\0') pager = "less -FR";
  const auto before_int = std::signal(SIGINT, SIG_IGN);  // it is the pager's
  const auto before_pipe = std::signal(SIGPIPE, SIG_IGN);
  std::FILE* const pipe = popen(pager, "w");
  bool shown = pipe != nullptr;
  if (shown) {
    std::fwrite(text.data(), 1, text.size(), pipe);  // who leaves early has read enough
    constexpr int kNotFound = 127 << 8;
    shown = pclose(pipe) != kNotFound;
  }
  std::signal(SIGINT, before_int);
  std::signal(SIGPIPE, before_pipe);
  return shown;
}

// Where the text of a line goes on below it: at its second column, if it has one.
std::size_t indent_behind(const std::string& line, std::size_t indent) {
  constexpr std::size_t kWidestFirstColumn = 30;
  const std::size_t gap = line.find("  ", indent);
  if (gap == line.npos || gap > kWidestFirstColumn) return indent + 2;
  return std::min(line.find_first_not_of(' ', gap), line.size());
}

}  // namespace

Screen screen() {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return {};
  return {size.ws_col, size.ws_row};
}

std::string fitted(std::string_view text, std::size_t width) {
  std::string result;
  while (!text.empty()) {
    std::string line(text.substr(0, text.find('\n')));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
    const std::string next_indent(indent_behind(line, indent), ' ');
    while (line.size() > width) {
      std::size_t cut = line.rfind(' ', width);
      if (cut == line.npos || cut <= indent) cut = line.find(' ', std::max(width, indent));
      if (cut == line.npos) break;
      result += line.substr(0, cut) + '\n';
      line.replace(0, std::min(line.find_first_not_of(' ', cut), line.size()), next_indent);
      indent = next_indent.size();
    }
    result += line + '\n';
  }
  return result;
}

void show_help(std::string_view text) {
  if (isatty(STDOUT_FILENO) == 0) {
    std::cout << text << std::flush;
    return;
  }
  const Screen size = screen();
  const std::string lines = fitted(text, size.width);
  const auto height = static_cast<std::size_t>(std::ranges::count(lines, '\n'));
  std::cout << std::flush;
  if (height + 1 > size.height && !is_plain_terminal() && paged(lines)) return;
  std::cout << lines << std::flush;
}

}  // namespace velmor
