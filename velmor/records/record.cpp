#include "records/record.h"

namespace velmor {
namespace {

// From the start of the first to the end of the last.
std::string_view stretch(std::string_view first, std::string_view last) {
  return {first.data(), static_cast<std::size_t>(last.data() + last.size() - first.data())};
}

}  // namespace

bool RecordReader::next(Record& record) {
  if (format_.kind == RecordKind::kParagraph) return next_paragraph(record);
  if (format_.kind == RecordKind::kFasta) return next_fasta(record);
  if (rest_.empty()) return false;
  record.line = line_;
  record.text = record.source = next_line(record.ended);
  return true;
}

// The next line without its end, also when that is a zero byte. The rest must not be empty.
std::string_view RecordReader::next_line(bool& ended) {
  const std::size_t end = rest_.find(format_.terminator());
  ended = end != rest_.npos;
  std::string_view line = rest_.substr(0, end);
  rest_.remove_prefix(line.size() + (ended ? 1 : 0));
  if (line.ends_with('\r')) {
    if (format_.drops_carriage_return)
      line.remove_suffix(1);
    else if (line_with_carriage_return_ == 0 && format_.kind != RecordKind::kZero)
      line_with_carriage_return_ = line_;
  }
  ++line_;
  return line;
}

// The next line that is not empty, where a record of several lines begins; empty at the end.
std::string_view RecordReader::first_line(Record& record) {
  bool ended = false;
  std::string_view line;
  while (line.empty() && !rest_.empty()) {
    record.line = line_;
    line = next_line(ended);
  }
  return line;
}

bool RecordReader::next_paragraph(Record& record) {
  joined_ = first_line(record);
  if (joined_.empty()) return false;
  bool ended = false;
  for (std::string_view line; !rest_.empty() && !(line = next_line(ended)).empty();) {
    joined_ += '\n';
    joined_ += line;
  }
  record.source = record.text = joined_;
  return true;
}

bool RecordReader::next_fasta(Record& record) {
  const std::string_view first = first_line(record);
  if (first.empty()) return false;
  const bool headed = first.starts_with('>');
  record.header = headed ? first : std::string_view();
  joined_ = headed ? std::string_view() : first;
  std::string_view last = first;
  bool ended = false;
  while (!rest_.empty() && !rest_.starts_with('>')) {
    const std::string_view line = next_line(ended);
    if (line.empty()) continue;
    joined_ += line;
    last = line;
  }
  record.source = stretch(first, last);
  record.text = joined_;
  return true;
}

}  // namespace velmor
