#include "encoding/marked.h"

#include "bytes/byte_scan.h"
#include "bytes/copy.h"
#include "bytes/count_byte.h"
#include "encoding/hexadecimal.h"

namespace vstring::encoding {
namespace {

constexpr bool is_unreserved(Byte c) {
  const int letter = c | 0x20;
  return (letter >= 'a' && letter <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.' ||
         c == '_' || c == '~';
}

constexpr bool is_blank(Byte c) { return c == ' ' || c == '\t'; }

// Inside a line.
constexpr Pieces kQuoted([](Byte c) {
  const bool stays = (c > ' ' && c < 127 && c != '=') || is_blank(c) || c == '\n';
  return stays ? itself(c) : marked_hexadecimal('=', c);
});

// The end of a line behind a mark joins it with the next one.
std::size_t line_end(Bytes text) {
  if (!text.empty() && text[0] == '\n') return 1;
  return text.size() > 1 && text[0] == '\r' && text[1] == '\n' ? 2 : 0;
}

Result<std::size_t> decode(Bytes text, Byte mark, bool joins_lines, MutableBytes out) {
  const ByteScan marks{ByteSet({&mark, 1})};
  MutableBytes rest = out;
  for (std::size_t at = 0;;) {
    const std::size_t next = marks.find(text, at);
    rest = copy_part(rest, text, at, next - at);
    if (next == text.size()) return out.size() - rest.size();
    const Bytes behind = text.subspan(next + 1);
    at = next + 1;
    if (const std::size_t end = joins_lines ? line_end(behind) : 0; end > 0) {
      at += end;
      continue;
    }
    const unsigned high = behind.size() < 2 ? 16 : digit_value(behind[0]);
    const unsigned low = behind.size() < 2 ? 16 : digit_value(behind[1]);
    if (high > 15 || low > 15) return Status::refused;
    rest[0] = static_cast<Byte>(high << 4 | low);
    rest = rest.subspan(1);
    at += 2;
  }
}

// A line has no more of what stands for the text; the mark that joins it with the next comes on
// top.
constexpr std::size_t kLongestLine = 75;
constexpr std::size_t kLongestPiece = 3;

}  // namespace

constinit const Pieces kPercent([](Byte c) {
  return is_unreserved(c) ? itself(c) : marked_hexadecimal('%', c);
});

// Two bytes more for a blank at the end of each line; two for each line that is broken, which is
// then nearly full.
std::size_t quoted_room(Bytes text) {
  const auto lines = 1 + count_byte(text, '\n');
  const std::size_t whole = kQuoted.length(text) + (kLongestPiece - 1) * lines;
  return whole + 2 * (whole / (kLongestLine - kLongestPiece + 1));
}

std::size_t encode_quoted(Bytes text, MutableBytes out) {
  std::size_t n = 0;
  std::size_t column = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Byte c = text[i];
    const bool ends_line = i + 1 == text.size() || text[i + 1] == '\n';
    const Piece piece = is_blank(c) && ends_line ? marked_hexadecimal('=', c) : kQuoted[c];
    if (c != '\n' && column + piece.length > kLongestLine) {
      out[n++] = '=';
      out[n++] = '\n';
      column = 0;
    }
    for (std::size_t k = 0; k < piece.length; ++k) out[n++] = piece.bytes[k];
    column = c == '\n' ? 0 : column + piece.length;
  }
  return n;
}

Result<std::size_t> decode_percent(Bytes text, MutableBytes out) {
  return decode(text, '%', false, out);
}

Result<std::size_t> decode_quoted(Bytes text, MutableBytes out) {
  return decode(text, '=', true, out);
}

}  // namespace vstring::encoding
