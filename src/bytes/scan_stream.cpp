#include "bytes/scan_stream.h"

#include <algorithm>

namespace vstring {

// Moves the window to the first place that is looked for.
std::size_t ScanStream::find_far(bool member, std::size_t at) {
  first_ = member ? scan_.find(text_, at) : scan_.find_other(text_, at);
  const std::size_t n = std::min(text_.size() - first_, kWindow);
  members_ = scan_.members(text_.subspan(first_, n));
  others_ = n == 0 ? 0 : ~members_ & UINT64_MAX >> (kWindow - n);
  return first_;
}

}  // namespace vstring
