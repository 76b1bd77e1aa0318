// Which vector instructions the kernels may use.
#pragma once

#if defined(__x86_64__)
#include <cpuid.h>

#include <atomic>

#define VSTRING_AVX2 __attribute__((target("avx2")))
#define VSTRING_SHA __attribute__((target("sha,sse4.1")))
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

inline bool has_sha() {
#ifdef VSTRING_SHA
  // Asked once: under a virtual machine the question costs more than a short digest. Threads that
  // ask at the same time get the same answer.
  enum Answer : unsigned char { kUnknown, kNo, kYes };
  static std::atomic<Answer> answer = kUnknown;
  Answer known = answer.load(std::memory_order_relaxed);
  if (known == kUnknown) {
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
    constexpr unsigned kSha = 1U << 29;
    const bool is_there = __builtin_cpu_supports("sse4.1") &&
                          __get_cpuid_count(7, 0, &a, &b, &c, &d) != 0 && (b & kSha) != 0;
    known = is_there ? kYes : kNo;
    answer.store(known, std::memory_order_relaxed);
  }
  return !plain_kernels_only && known == kYes;
#else
  return false;
#endif
}

}  // namespace vstring
