// The words of the builtin dictionary, in the order of their numbers (data/README.md).
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::search {

inline constexpr std::size_t kBuiltinWordCount = 25950;

// Every word followed by a newline.
Bytes builtin_words();

// Takes the first word off `words`, a tail of builtin_words() that is not empty.
Bytes take_word(Bytes& words);

// Word `k`, counted from 0, in constant time.
Bytes builtin_word(std::size_t k);

}  // namespace vstring::search
