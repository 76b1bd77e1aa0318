#include "words/run_length.h"

#include "bytes/common.h"

namespace vstring::words {

// As far as the word agrees with itself one letter on.
std::size_t first_run(Bytes word) { return 1 + common_prefix(word, word.subspan(1)); }

std::size_t count_runs(Bytes word) {
  std::size_t count = word.empty() ? 0 : 1;
  for (std::size_t i = 1; i < word.size(); ++i) count += word[i] != word[i - 1] ? 1 : 0;
  return count;
}

}  // namespace vstring::words
