// What a record of an input is, and where records end.
#pragma once
#include <cstddef>
#include <string_view>

namespace velmor {

enum class RecordKind {
  kLine,       // ended by a newline
  kZero,       // ended by a zero byte
  kParagraph,  // lines, up to an empty one
  kFasta,      // a line that begins with >, and the lines up to the next one
};

struct RecordFormat {
  RecordKind kind = RecordKind::kLine;
  bool drops_carriage_return = false;  // the one at the end of a line

  char terminator() const { return kind == RecordKind::kZero ? '\0' : '\n'; }
};

// The size of a prefix of `bytes` that is made of whole records: of at most `wanted` bytes if there
// is such a one, else of the shortest. 0 when no record is known to have ended. The first
// `searched` bytes are known to hold no end.
std::size_t whole_records(RecordFormat format, std::string_view bytes, std::size_t wanted,
                          std::size_t searched);

}  // namespace velmor
