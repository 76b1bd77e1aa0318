// Letters of the Latin alphabet without their marks: the ASCII letter with which the canonical
// decomposition (Unicode, NFD) of a letter begins; for letters that have none, such as the German
// sharp s or the Polish l with stroke, what is usually written in their place.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::charclass {

// Each writes to `out` and returns the length of what it wrote. What is no such letter is copied.
//
// UTF-8: the letters of U+00C0 to U+024F and U+1E00 to U+1EFF; combining marks (U+0300 to U+036F)
// behind an ASCII letter go. `out` has the size of `text`.
std::size_t unaccent_utf8(Bytes text, MutableBytes out);
// ISO 8859-1. `out` has twice the size of `text`.
std::size_t unaccent_latin1(Bytes text, MutableBytes out);

}  // namespace vstring::charclass
