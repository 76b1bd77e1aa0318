#include "manual/roff.h"

namespace velmor::roff {
namespace {

// What roff would show as another character, or take for a request of its own.
std::string_view escape(char c) {
  switch (c) {
    case '\\':
      return "\\e";
    case '-':
      return "\\-";
    case '\'':
      return "\\(aq";
    case '`':
      return "\\(ga";
    case '^':
      return "\\(ha";
    case '~':
      return "\\(ti";
    default:
      return {};
  }
}

}  // namespace

std::string plain(std::string_view text) {
  std::string escaped;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool at_line_start = i == 0 || text[i - 1] == '\n';
    if (at_line_start && text[i] == '.') escaped += "\\&";
    const std::string_view special = escape(text[i]);
    if (special.empty())
      escaped += text[i];
    else
      escaped += special;
  }
  return escaped;
}

std::string bold(std::string_view text) { return "\\fB" + plain(text) + "\\fR"; }
std::string italic(std::string_view text) { return "\\fI" + plain(text) + "\\fR"; }

std::string verbatim(std::string_view text) {
  return ".PP\n.nf\n" + plain(text) + (text.ends_with('\n') ? "" : "\n") + ".fi\n";
}

}  // namespace velmor::roff
