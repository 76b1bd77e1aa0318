// Letting go of what the library keeps from call to call, and of the library itself.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

#include "support/allocations.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

// Goes through what is remembered, and gives something else a second time.
const std::string kRemembering =
    "dictCreate([\"a\", \"b\"]), dictObjSearch(dictCreate(builtin), \"zebra\"), "
    "wslo(\"a\", \"b\", [\"a\" = 1]), regmatch(\"a*b\", \"aab\"), random(9), random(9, \"xyz\"), "
    "random(9, digit), random(9, last), stem(\"maximum\", stemmer = lancaster)";

TEST(Release, PutsAllBackToItsStart) {
  constexpr int kMark = '!';
  VelmorHeap* const heap = session().heap();
  vstringRelease(velmor_table(heap));
  const std::size_t protected_before = velmor_protected_count(heap);
  const std::size_t blocks_before = live_blocks();
  cclbm[kMark] |= 1;
  const std::string first = evaluate(kRemembering);
  EXPECT_NE(first, evaluate(kRemembering));
  vrx_regcomp("(");
  SetFilterAlphabet("xyz");
  EXPECT_LT(protected_before, velmor_protected_count(heap));
  for (int again = 0; again < 2; ++again) {
    vstringRelease(velmor_table(heap));
    EXPECT_EQ(protected_before, velmor_protected_count(heap));
    EXPECT_EQ(blocks_before, live_blocks());
    EXPECT_STREQ("", vrx_regerror(nullptr));
    EXPECT_EQ(1, AlphabetFilter('q'));
    EXPECT_EQ("error: invalid dictionary ID", evaluate("dictObjSize(1)"));
    EXPECT_EQ(1, ccl_islower(kMark));
    EXPECT_EQ(first, evaluate(kRemembering));
  }
  cclbm[kMark] &= ~1U;
  vstringRelease(velmor_table(heap));
  EXPECT_STREQ("", velmor_faults(heap));
}

// The sanitizers keep what they know of a library.
#ifndef __SANITIZE_ADDRESS__

std::size_t resident_pages() {
  std::size_t total = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> total >> resident;
  return resident;
}

bool is_mapped(const char* file) {
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    if (line.find(file) != std::string::npos) return true;
  }
  return false;
}

// Another copy of the library than the one that is linked in, whose names it must not mind.
void use_and_unload(bool releases) {
  VelmorHeap* const heap = session().heap();
  void* const library = dlopen(VSTRING_LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(nullptr, library) << dlerror();
  const auto command = [&](const char* name) {
    return reinterpret_cast<VelmorCommand>(dlsym(library, name));
  };
  EXPECT_EQ("5", call(command("vstringVersion"), {}));
  EXPECT_EQ("true", call(command("vstring_regmatch"), {"a", "a"}));
  velmor_fail_operation(heap, 1);  // leaves a block behind
  EXPECT_EQ("error: injected failure", call(command("vstring_repeat"), {"a", 20000}));
  if (releases) {
    EXPECT_EQ("1", call(command("vstring_dictCreate"), {list({"a"})}));
    const auto release =
        reinterpret_cast<void (*)(const HostTable*)>(dlsym(library, "vstringRelease"));
    release(velmor_table(heap));
  }
  EXPECT_EQ(0, dlclose(library));
  EXPECT_FALSE(is_mapped("libvstring.so"));
}

TEST(Release, LoadingAndUnloadingLeavesNothing) {
  constexpr int kRounds = 1000;
  const std::size_t protected_before = velmor_protected_count(session().heap());
  std::size_t warm = 0;
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    use_and_unload(round % 2 == 0);
    if (round % 16 == 0) velmor_collect(session().heap());
    if (round == kRounds / 4) warm = resident_pages();
  }
  EXPECT_LE(resident_pages(), warm + 64);
  EXPECT_EQ(protected_before, velmor_protected_count(session().heap()));
}

#endif

}  // namespace
}  // namespace vstring_test
