#include "runtime/scratch.h"

#include "host/vstring.h"

namespace {
char scratch[SMALL_BUFFER_BASE_SIZE];
}  // namespace

static_assert(vstring::kScratchLimit <= sizeof scratch);

char* smbuf = scratch;
