#include "encoding/visible.h"

namespace vstring::encoding {

constinit const Pieces kVisible([](Byte c) {
  if (c == '\t' || c == '\n') return itself(c);
  Piece piece;
  if (c >= 128) {
    piece.add('M');
    piece.add('-');
  }
  const int low = c & 127;
  if (low < 32 || low == 127) piece.add('^');
  piece.add(low == 127 ? '?' : low < 32 ? low + 64 : low);
  return piece;
});

}  // namespace vstring::encoding
