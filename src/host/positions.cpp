// Ranges and single positions, from the host's 1-based counting to 0-based offsets.
#include "host/raise.h"

using vstring::raise;

namespace {

int64_t endpoint(const HostTable* host, HostObject object, const char* refusal) {
  if (host->HostIsInteger32(object) == 0) raise(host, refusal);
  return host->HostToInteger32(object);
}

}  // namespace

int64_t GetRange(const HostTable* host, HostObject range, int64_t* low, int64_t* high) {
  const auto* const words = reinterpret_cast<const HostObject*>(range);
  const int64_t a = endpoint(host, words[1], "lower endpoint of range must be a small integer");
  const int64_t b = endpoint(host, words[2], "upper endpoint of range must be a small integer");
  *low = a;
  *high = b;
  return b - a + 1;
}

int64_t NormalRange(int64_t length, int64_t* low, int64_t* high) {
  const int64_t a = *low < 0 ? length + *low : *low > length ? length : *low - 1;
  const int64_t b = *high < 0 ? length + *high : *high > length ? length - 1 : *high - 1;
  if (a < 0 || b < 0 || b < a - 1) return -1;
  *low = a;
  *high = b;
  return b - a + 1;
}

int64_t GetStringIndex(const HostTable* host, int64_t length, HostObject object) {
  if (host->HostIsInteger32(object) == 0) {
    raise(host, "expecting an integral (32-bit) string index, but got `%1'", object);
  }
  // A negative index counts from the end; the others count the bytes before the position, so that
  // inserting at `length` appends.
  int64_t index = host->HostToInteger32(object);
  if (index < 0) index += length;
  if (index < 0 || index > length) raise(host, "string index `%1' out of range", object);
  return index;
}
