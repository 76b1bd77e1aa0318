/* GAP that collects before every n-th bag, n being VSTRING_COLLECT, as soon as the module is
 * loaded, and before every hundredth of these all bags instead of the young ones. GAP's library
 * calls NewBag by way of the dynamic linker, which finds the one of this program first. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <gap_all.h>
#include <stdlib.h>

int realmain(int argc, char* argv[]);

static int module_is_loaded(void) {
  static int loaded;
  static unsigned asked;
  if (!loaded && ++asked % 4096 == 0)
    loaded = dlopen(getenv("VSTRING_MODULE"), RTLD_LAZY | RTLD_NOLOAD) != 0;
  return loaded;
}

Bag NewBag(UInt type, UInt size) {
  static Bag (*real)(UInt, UInt);
  static unsigned long every, count;
  if (real == 0) {
    real = (Bag(*)(UInt, UInt))dlsym(RTLD_NEXT, "NewBag");
    every = strtoul(getenv("VSTRING_COLLECT"), 0, 10);
  }
  if (module_is_loaded() && ++count % every == 0) CollectBags(0, count % (100 * every) == 0);
  return real(type, size);
}

int main(int argc, char* argv[]) { return realmain(argc, argv); }
