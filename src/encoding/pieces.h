// Texts in which every byte becomes a piece of its own, of one to four bytes.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "bytes/bytes.h"

namespace vstring::encoding {

struct Piece {
  Byte bytes[4] = {};
  std::uint8_t length = 0;

  constexpr void add(int c) { bytes[length++] = static_cast<Byte>(c); }
};

// A mark and the digits of a byte.
constexpr Piece marked_hexadecimal(char mark, Byte c) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  Piece piece;
  piece.add(mark);
  piece.add(kDigits[c >> 4]);
  piece.add(kDigits[c & 15]);
  return piece;
}

constexpr Piece itself(Byte c) {
  Piece piece;
  piece.add(c);
  return piece;
}

class Pieces {
 public:
  explicit consteval Pieces(Piece (*form)(Byte)) : pieces_{} {
    for (std::size_t c = 0; c < pieces_.size(); ++c) pieces_[c] = form(static_cast<Byte>(c));
  }

  const Piece& operator[](Byte c) const { return pieces_[c]; }

  // Length of what a text becomes.
  std::size_t length(Bytes text) const {
    std::size_t n = 0;
    for (const Byte c : text) n += pieces_[c].length;
    return n;
  }

  // Writes it to `out`, of that size, which is returned. Where there is room four bytes are copied
  // whatever the length.
  std::size_t write(Bytes text, MutableBytes out) const {
    std::size_t n = 0;
    for (const Byte c : text) {
      const Piece& piece = pieces_[c];
      std::memcpy(out.data() + n, piece.bytes,
                  out.size() - n >= sizeof piece.bytes ? sizeof piece.bytes : piece.length);
      n += piece.length;
    }
    return n;
  }

 private:
  std::array<Piece, 256> pieces_;
};

}  // namespace vstring::encoding
