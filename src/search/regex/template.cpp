#include "search/regex/template.h"

namespace vstring::regex {
namespace {

constexpr bool is_digit(Byte c) { return c >= '0' && c <= '9'; }

// Length of the leading bytes that stand for themselves.
std::size_t plain_length(Bytes text) {
  std::size_t i = 0;
  for (; i < text.size() && text[i] != '&'; ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) continue;
    const Byte c = text[i + 1];
    if (is_digit(c) || c == '&' || c == '\\') break;
  }
  return i;
}

}  // namespace

Piece TemplateReader::next() {
  Piece piece;
  std::size_t used = plain_length(rest_);
  if (used > 0) {
    piece.bytes = rest_.first(used);
  } else if (rest_[0] == '&') {
    piece.group = 0;
    used = 1;
  } else {
    used = 2;
    if (is_digit(rest_[1])) {
      piece.group = rest_[1] - '0';
    } else {
      piece.bytes = rest_.subspan(1, 1);
    }
  }
  rest_ = rest_.subspan(used);
  return piece;
}

Result<std::size_t> expanded_length(Bytes replacement, Bytes text, const Match& match) {
  std::size_t length = 0;
  for (TemplateReader reader(replacement); !reader.done();) {
    const Piece piece = reader.next();
    const Bytes bytes = piece.group < 0 ? piece.bytes : match.group(text, piece.group);
    if (__builtin_add_overflow(length, bytes.size(), &length)) return Status::out_of_memory;
  }
  return length;
}

MutableBytes expand(Bytes replacement, Bytes text, const Match& match, MutableBytes out) {
  for (TemplateReader reader(replacement); !reader.done();) {
    const Piece piece = reader.next();
    out = copy_into(out, piece.group < 0 ? piece.bytes : match.group(text, piece.group));
  }
  return out;
}

}  // namespace vstring::regex
