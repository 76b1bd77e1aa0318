// Which vector instructions the kernels may use.
#pragma once

#if defined(__x86_64__)
#define VSTRING_AVX2 __attribute__((target("avx2")))
#endif

namespace vstring {

// Set by tests, to see the plain twins of the kernels run.
inline bool plain_kernels_only = false;

inline bool has_avx2() {
#ifdef VSTRING_AVX2
  return !plain_kernels_only && __builtin_cpu_supports("avx2");
#else
  return false;
#endif
}

}  // namespace vstring
