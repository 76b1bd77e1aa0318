#include "language/report.h"

#include <algorithm>
#include <ostream>
#include <string_view>

#include "heap/utf8.h"

namespace velmor {
namespace {

constexpr std::size_t kShownBytes = 72;  // of a long line, around the error

std::string_view line_of(std::string_view text, std::size_t number) {
  for (; number > 1; --number) text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
  return text.substr(0, text.find('\n'));
}

// The line, or the part of it around the column, and the caret. Control characters would move it
// elsewhere and are shown as blanks.
void point_at(std::ostream& err, std::string_view line, std::size_t column) {
  std::size_t begin = column > kShownBytes ? column - kShownBytes * 3 / 4 : 0;
  while (begin > 0 && begin < line.size() && continues_character(line[begin])) --begin;
  std::size_t end = std::min(line.size(), begin + kShownBytes);
  while (end < line.size() && continues_character(line[end])) ++end;
  std::string shown(line.substr(begin, end - begin));
  std::ranges::replace_if(
      shown, [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }, ' ');
  shown.erase(shown.find_last_not_of(' ') + 1);
  const auto before = std::string_view(shown).substr(0, std::min(column - 1 - begin, shown.size()));
  const std::size_t width = utf8_count(before);
  err << "  " << shown << "\n  " << std::string(width + (column - 1 - begin - before.size()), ' ')
      << "^\n";
}

}  // namespace

void report(std::ostream& err, const Failure& failure, const Statement& statement,
            const std::string& name) {
  const std::size_t line = std::max<std::size_t>(1, failure.line());
  err << failure.report();
  if (!name.empty()) err << " (" << name << ", line " << statement.line + line - 1 << ')';
  err << '\n';
  if (const auto* error = dynamic_cast<const SyntaxError*>(&failure))
    point_at(err, line_of(statement.text, line), error->column());
  err << std::flush;
}

}  // namespace velmor
