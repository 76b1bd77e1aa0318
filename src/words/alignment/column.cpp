#include "words/alignment/column.h"

#include <algorithm>
#include <charconv>

#include "words/run_length.h"

namespace vstring::words {

std::size_t cigar_length(Bytes columns) {
  std::size_t length = 0;
  while (!columns.empty()) {
    const std::size_t run = first_run(columns);
    for (std::size_t rest = run; rest > 0; rest /= 10) ++length;
    ++length;
    columns = columns.subspan(run);
  }
  return length;
}

void write_cigar(Bytes columns, MutableBytes cigar) {
  char* at = reinterpret_cast<char*>(cigar.data());
  char* const end = at + cigar.size();
  while (!columns.empty()) {
    const std::size_t run = first_run(columns);
    at = std::to_chars(at, end, run).ptr;
    *at++ = static_cast<char>(columns[0]);
    columns = columns.subspan(run);
  }
}

void write_row(Bytes columns, Bytes word, Byte without, MutableBytes row) {
  std::size_t i = 0;
  for (std::size_t k = 0; k < columns.size(); ++k) {
    row[k] = columns[k] == without ? Byte{'-'} : word[i++];
  }
}

std::size_t count_equal(Bytes columns) {
  return static_cast<std::size_t>(std::count(columns.begin(), columns.end(), kEqual));
}

void write_equal(Bytes columns, Bytes s, MutableBytes letters) {
  std::size_t i = 0;
  std::size_t written = 0;
  for (const Byte column : columns) {
    if (column == kEqual) letters[written++] = s[i];
    if (column != kInserted) ++i;
  }
}

}  // namespace vstring::words
