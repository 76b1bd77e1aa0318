#include "text/language/ipsum.h"

#include <algorithm>

namespace vstring::text {
namespace {

// The paragraph with the newlines that follow it.
constexpr char kBlock[] =
    "Lorem ipsum dolor sit amet, consectetuer adipiscing elit, sed diam nonummy nibh euismod "
    "tincidunt ut laoreet dolore magna aliquam erat volutpat. Ut wisi enim ad minim veniam, quis "
    "nostrud exerci tation ullamcorper suscipit lobortis nisl ut aliquip ex ea commodo consequat. "
    "Duis autem vel eum iriure dolor in hendrerit in vulputate velit esse molestie consequat, vel "
    "illum dolore eu feugiat nulla facilisis at vero eros et accumsan et iusto odio dignissim qui "
    "blandit praesent luptatum zzril delenit augue duis dolore te feugait nulla facilisi. "
    "\n\n";
constexpr std::size_t kBlockSize = sizeof kBlock - 1;
static_assert(kBlockSize == kIpsumParagraph + 2);

}  // namespace

std::size_t ipsum_length(std::size_t n) { return n == 1 ? kIpsumParagraph : n * kBlockSize - 1; }

void write_ipsum(MutableBytes out) {
  const Bytes block = bytes_of(kBlock);
  while (!out.empty()) out = copy_into(out, block.first(std::min(kBlockSize, out.size())));
}

}  // namespace vstring::text
