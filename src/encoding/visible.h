// Control characters and bytes beyond ASCII made visible.
#pragma once
#include "encoding/pieces.h"

namespace vstring::encoding {

// As `cat -v` shows each byte: ^A for a control character other than tab and newline, M- before
// what it shows for a byte less 128.
extern const Pieces kVisible;

}  // namespace vstring::encoding
