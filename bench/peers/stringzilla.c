/* stringzilla, which is all headers, for the benchmarks. */
#include <stringzilla/stringzilla.h>

const char* zilla_find(const char* text, size_t n, const char* pattern, size_t m) {
  return sz_find(text, n, pattern, m);
}

void zilla_lookup(char* target, size_t n, const char* source, const char* table) {
  sz_lookup(target, n, source, table);
}
