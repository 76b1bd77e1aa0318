#include "text/layout/indentation.h"

#include <algorithm>

#include "bytes/common.h"
#include "charclass/class_table.h"
#include "text/layout/fill.h"
#include "text/layout/lines.h"

namespace vstring::text {
namespace {

bool looks_empty(Bytes line) {
  return std::all_of(line.begin(), line.end(),
                     [](Byte c) { return charclass::is(c, charclass::kSpace); });
}

// The run of blanks and tabs that a line begins with.
Bytes leading_run(Bytes line) {
  std::size_t n = 0;
  while (n < line.size() && (line[n] == ' ' || line[n] == '\t')) ++n;
  return line.first(n);
}

// What all lines that do not look empty begin with.
Bytes common_margin(Bytes text) {
  Bytes margin;
  bool is_first = true;
  for (LineReader reader(text); !reader.is_done();) {
    const Bytes line = reader.next();
    if (looks_empty(line)) continue;
    const Bytes run = leading_run(line);
    margin = is_first ? run : margin.first(common_prefix(margin, run));
    is_first = false;
  }
  return margin;
}

MutableBytes put_line(MutableBytes out, Bytes line, const LineReader& reader) {
  out = copy_into(out, line);
  return reader.ends_in_newline() ? copy_into(out, bytes_of("\n")) : out;
}

}  // namespace

std::uint64_t indented_length(Bytes text, const Margin& margin) {
  std::uint64_t lines = 0;
  for (LineReader reader(text); !reader.is_done();) lines += looks_empty(reader.next()) ? 0 : 1;
  return text.size() + lines * margin.size();
}

void indent(Bytes text, const Margin& margin, MutableBytes out) {
  for (LineReader reader(text); !reader.is_done();) {
    const Bytes line = reader.next();
    if (!looks_empty(line)) {
      out = copy_into(out, margin.text);
      Fill(' ', out.first(margin.blanks));
      out = out.subspan(margin.blanks);
    }
    out = put_line(out, line, reader);
  }
}

std::size_t dedent(Bytes text, MutableBytes out) {
  const std::size_t margin = common_margin(text).size();
  MutableBytes rest = out;
  for (LineReader reader(text); !reader.is_done();) {
    const Bytes line = reader.next();
    const std::size_t removed = looks_empty(line) ? leading_run(line).size() : margin;
    rest = put_line(rest, line.subspan(removed), reader);
  }
  return out.size() - rest.size();
}

}  // namespace vstring::text
