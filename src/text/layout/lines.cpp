#include "text/layout/lines.h"

#include <cstring>

namespace vstring::text {

Bytes LineReader::next() {
  const Byte* const newline =
      rest_.empty() ? nullptr
                    : static_cast<const Byte*>(std::memchr(rest_.data(), '\n', rest_.size()));
  const Bytes line =
      newline == nullptr ? rest_ : rest_.first(static_cast<std::size_t>(newline - rest_.data()));
  is_done_ = newline == nullptr;
  rest_ = rest_.subspan(line.size() + (is_done_ ? 0 : 1));
  return line;
}

Status split_lines(Bytes text, HeldArray<Bytes>& lines) {
  for (LineReader reader(text); !reader.is_done();) {
    Bytes line = reader.next();
    if (reader.is_done() && line.empty()) break;
    if (!reader.is_done() && !line.empty() && line.back() == '\r') {
      line = line.first(line.size() - 1);
    }
    if (!lines.push_back(line)) return Status::out_of_memory;
  }
  return Status::ok;
}

}  // namespace vstring::text
