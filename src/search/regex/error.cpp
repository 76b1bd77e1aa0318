#include "search/regex/error.h"

#include <cstddef>
#include <cstring>

#include "host/vstring.h"

namespace {
char recorded[256];
}  // namespace

const char* vstring::regex::recorded_error() { return recorded; }
void vstring::regex::forget_error() { recorded[0] = '\0'; }

char* vrx_regerror(const char* message) {
  if (message == nullptr) return recorded;
  const std::size_t length = strnlen(message, sizeof recorded - 1);
  std::memmove(recorded, message, length);  // it may be the recorded message itself
  recorded[length] = '\0';
  return recorded;
}
