// Lines of a text, read one after the other.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::text {

// The pieces between newlines: one more than there are newlines. A final newline is followed by an
// empty piece.
class LineReader {
 public:
  explicit LineReader(Bytes text) : rest_(text) {}

  bool is_done() const { return is_done_; }
  // Whether a newline follows the line that was read last.
  bool ends_in_newline() const { return !is_done_; }
  // The next line, without its newline. Requires that it is not done.
  Bytes next();

 private:
  Bytes rest_;
  bool is_done_ = false;
};

// Appends the lines as text files have them: each ends at a newline, which is dropped together with
// one carriage return before it; what follows the last newline is a line if it is not empty.
Status split_lines(Bytes text, HeldArray<Bytes>& lines);

}  // namespace vstring::text
