#include "text/extraction/words.h"

#include "charclass/class_table.h"

namespace vstring::text {
namespace {

enum class Kind { letter, apostrophe, separator };

struct Piece {
  Kind kind;
  std::size_t length;  // 0 behind the text
};

// A byte from 128 on, and what follows it where they are punctuation in UTF-8.
Piece high_piece_at(Bytes text, std::size_t i) {
  const std::size_t left = text.size() - i;
  if (text[i] == 0xe2 && left > 2) {
    const Byte second = text[i + 1];
    const Byte third = text[i + 2];
    if (second == 0x80 && third == 0x99) return {Kind::apostrophe, 3};
    if ((second == 0x80 || second == 0x81) && third >= 0x80 && third <= 0xbf) {
      return {Kind::separator, 3};
    }
  }
  if (text[i] == 0xc2 && left > 1) {
    const Byte second = text[i + 1];
    const bool is_letter = second == 0xaa || second == 0xb5 || second == 0xba;
    if (second >= 0xa0 && second <= 0xbf && !is_letter) return {Kind::separator, 2};
  }
  return {Kind::letter, 1};
}

Piece piece_at(Bytes text, std::size_t i) {
  if (i == text.size()) return {Kind::separator, 0};
  const Byte c = text[i];
  if (c >= 0x80) return high_piece_at(text, i);
  if (c == '\'') return {Kind::apostrophe, 1};
  const bool is_letter = charclass::is(c, charclass::kAlpha) || charclass::is(c, charclass::kDigit);
  return {is_letter ? Kind::letter : Kind::separator, 1};
}

// The end of the word that begins at `i`.
std::size_t end_of_word(Bytes text, std::size_t i) {
  for (;;) {
    Piece piece = piece_at(text, i);
    if (piece.kind == Kind::apostrophe) {
      const std::size_t behind = i + piece.length;
      piece = piece_at(text, behind);
      if (piece.kind != Kind::letter) return i;
      i = behind;
    } else if (piece.kind != Kind::letter) {
      return i;
    }
    i += piece.length;
  }
}

}  // namespace

Status find_words(Bytes text, HeldArray<Bytes>& words) {
  for (std::size_t i = 0; i < text.size();) {
    const Piece piece = piece_at(text, i);
    if (piece.kind != Kind::letter) {
      i += piece.length;
      continue;
    }
    const std::size_t end = end_of_word(text, i);
    if (!words.push_back(text.subspan(i, end - i))) return Status::out_of_memory;
    i = end;
  }
  return Status::ok;
}

}  // namespace vstring::text
