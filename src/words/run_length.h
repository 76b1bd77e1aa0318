// Runs of equal letters.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::words {

// Length of the run that begins `word`, which is not empty.
std::size_t first_run(Bytes word);

// Into how many runs `word` falls.
std::size_t count_runs(Bytes word);

}  // namespace vstring::words
