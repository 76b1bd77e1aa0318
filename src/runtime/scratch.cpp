#include "runtime/scratch.h"

namespace vstring {

Byte scratch[SMALL_BUFFER_BASE_SIZE];
static_assert(kScratchLimit <= sizeof scratch);

}  // namespace vstring

char* smbuf = reinterpret_cast<char*>(vstring::scratch);
