/* Calls vstring from C: makes a heap, two argument values, and one call after the other. */
#include <stdio.h>
#include <stdlib.h>

#include <velmor_runtime.h>

static void show(VelmorHeap* heap, const char* what, VelmorCommand command, size_t n,
                 const HostObject* arguments) {
  HostObject result;
  if (velmor_call(heap, command, velmor_sequence(heap, n, arguments), &result)) {
    char* text = velmor_print(heap, result);
    printf("%s: %s\n", what, text);
    free(text);
  } else {
    printf("%s: error, %s\n", what, velmor_error(heap));
  }
}

int main(void) {
  VelmorHeap* heap = velmor_heap_new();
  if (heap == NULL) return 1;
  const HostObject arguments[] = {velmor_string(heap, "abra"), velmor_string(heap, "abracadabra")};
  show(heap, "reversed", vstring_reverse, 1, arguments);
  show(heap, "how many a", vstring_numboccur, 2, arguments);
  show(heap, "begins with abra", vstring_isprefix, 2, arguments);
  show(heap, "too few", vstring_isprefix, 1, arguments);
  velmor_heap_free(heap);
  return 0;
}
