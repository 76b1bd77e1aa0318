// A file as chunks of whole records.
#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "records/format.h"

namespace velmor {

struct Chunk {
  std::string_view bytes;
  std::size_t first_line = 1;  // of its file (with records that zero bytes end: the first record)
  std::size_t file = 0;        // its index
};

class ChunkReader {
 public:
  // Reads from a descriptor, which it does not close. `before_waiting` is called whenever the input
  // has paused: nothing is there, and nothing more will be answered until something is.
  ChunkReader(int descriptor, RecordFormat format, std::function<void()> before_waiting);

  // The next chunk, of around `wanted` bytes, valid until the next call. False at the end, and when
  // reading failed (see error).
  bool next(std::size_t wanted, Chunk& chunk);

  // errno of the read that failed; 0 when none did.
  int error() const { return error_; }

 private:
  bool refill();

  int descriptor_;
  RecordFormat format_;
  std::function<void()> before_waiting_;
  std::string buffer_;
  std::size_t begin_ = 0, end_ = 0;  // of what was read and not yet returned
  std::size_t searched_ = 0;         // of that: known to hold no end of a record
  std::size_t next_line_ = 1;
  bool at_end_ = false;
  int error_ = 0;
};

}  // namespace velmor
