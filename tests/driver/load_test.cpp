// Loading the shared library, and how long that takes: a figure, since a clock decides no test.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "support/figures.h"

namespace vstring_test {
namespace {

TEST(Load, AndUnloadManyTimes) {
  double best = 1e9;
  for (int i = 0; i < 20; ++i) {
    const auto start = std::chrono::steady_clock::now();
    void* const library = dlopen(VSTRING_LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL);
    const std::chrono::duration<double, std::micro> taken =
        std::chrono::steady_clock::now() - start;
    ASSERT_NE(nullptr, library) << dlerror();
    dlclose(library);
    best = std::min(best, taken.count());
  }
  figure("load_microseconds") = best;
}

}  // namespace
}  // namespace vstring_test
