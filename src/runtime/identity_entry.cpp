// Entry points: vstringInit(), version(), config().
#include <clocale>

#include "host/vstring.h"

int64_t vstringInit() {
  static bool has_run = false;
  if (has_run) return 0;
  has_run = true;
  return std::setlocale(LC_ALL, "C") == nullptr ? 0 : 1;
}

HostObject vstringVersion(const HostTable* host, HostObject) {
  return host->HostNewInteger(VSTRING_VERSION_MAJOR);
}

HostObject vstring_config(const HostTable* host, HostObject) {
  host->HostPrintf("Package: %s-%d.%d\n", "vstring", VSTRING_VERSION_MAJOR, VSTRING_VERSION_MINOR);
  host->HostPrintf("Word Size: %d\n", 64);
  host->HostPrintf("Byte Sex: LITTLEENDIAN\n");
  host->HostPrintf("SMALL_BUFFER_BASE_SIZE = %u\n", unsigned{SMALL_BUFFER_BASE_SIZE});
  host->HostPrintf("TMP_CHAR_MASK = %u\n", unsigned{TMP_CHAR_MASK});
  host->HostPrintf("TMP_CHAR_SHIFT = %u\n", unsigned{TMP_CHAR_SHIFT});
  host->HostPrintf("Preprocessor Directives: ");
  host->HostPrintf("HAVE_INTTYPES_H ");
  host->HostPrintf("HAVE_SETLOCALE ");
  host->HostPrintf("\n");
  return host->HostNull();
}
