/* A host's own definitions of the names that the library exports for its helpers. The library must
 * go on calling its own. */
#include <stdio.h>
#include <stdlib.h>

char smbuf[4];

#define HELPER(name)                                            \
  void name(void);                                              \
  void name(void) {                                             \
    fputs("the library called the host's " #name "\n", stderr); \
    abort();                                                    \
  }
#include "clashing_names.inc"
