/* One command from C: the Lyndon factors of a word. */
#include <stdio.h>
#include <stdlib.h>

#include <velmor_runtime.h>

int main(void) {
  VelmorHeap* heap = velmor_heap_new();
  if (heap == NULL) return 1;
  const HostObject word = velmor_string(heap, "banana");
  HostObject factors;
  if (velmor_call(heap, vstring_lynfac, velmor_sequence(heap, 1, &word), &factors)) {
    char* text = velmor_print(heap, factors);
    puts(text);
    free(text);
  } else {
    puts(velmor_error(heap));
  }
  velmor_heap_free(heap);
  return 0;
}
