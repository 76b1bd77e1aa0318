// Records, one after the other.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "records/chunks.h"
#include "records/format.h"

namespace velmor {

struct Record {
  std::string_view text;    // of a FASTA record the sequence, its lines joined
  std::string_view header;  // of a FASTA record: the line that begins with >
  std::string_view source;  // as it stands in the file, without the end of its last line
  std::size_t line = 1;     // where it begins
  bool ended = true;        // by the byte that ends records; false for a file's last line at most
};

// The records of a chunk. What a record refers to is valid until the next one.
class RecordReader {
 public:
  RecordReader(RecordFormat format, const Chunk& chunk)
      : format_(format), rest_(chunk.bytes), line_(chunk.first_line) {}

  bool next(Record& record);

  // The first line so far with a carriage return at its end that was not dropped; 0 when there is
  // none.
  std::size_t line_with_carriage_return() const { return line_with_carriage_return_; }

 private:
  std::string_view next_line(bool& ended);
  std::string_view first_line(Record& record);
  bool next_paragraph(Record& record);
  bool next_fasta(Record& record);

  RecordFormat format_;
  std::string_view rest_;
  std::size_t line_;
  std::size_t line_with_carriage_return_ = 0;
  std::string joined_;
};

}  // namespace velmor
