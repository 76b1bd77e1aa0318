#include "support/allocations.h"

#include <cstdint>
#include <cstdlib>
#include <unordered_set>

namespace {

std::size_t countdown = 0;
bool has_failed = false;
bool fails_for_good = false;
std::size_t limit = SIZE_MAX;

// Blocks that came through the wrappers. Others reach the wrapped free too (a text that libc
// allocated, say) and are not the library's.
std::unordered_set<void*>& blocks() {
  static auto* const set = new std::unordered_set<void*>;
  return *set;
}

bool refuse(std::size_t bytes) {
  if (bytes > limit) return true;
  if (fails_for_good && has_failed) return true;
  if (countdown == 0 || --countdown != 0) return false;
  has_failed = true;
  return true;
}

void* remember(void* block) {
  if (block != nullptr) blocks().insert(block);
  return block;
}

}  // namespace

extern "C" {

void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);
void __wrap_free(void* block);

void* __wrap_malloc(std::size_t size) {
  return refuse(size) ? nullptr : remember(__real_malloc(size));
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
  std::size_t bytes = 0;
  if (__builtin_mul_overflow(count, size, &bytes) || refuse(bytes)) return nullptr;
  return remember(__real_calloc(count, size));
}

void* __wrap_realloc(void* block, std::size_t size) {
  if (refuse(size)) return nullptr;
  blocks().erase(block);
  void* const moved = __real_realloc(block, size);
  remember(moved != nullptr ? moved : block);
  return moved;
}

void __wrap_free(void* block) {
  blocks().erase(block);
  __real_free(block);
}

}  // extern "C"

namespace vstring_test {

std::size_t live_blocks() { return blocks().size(); }

void fail_allocation(std::size_t k, bool and_all_after) {
  countdown = k;
  fails_for_good = and_all_after;
  has_failed = false;
}

bool allocation_failed() { return has_failed; }

std::size_t limit_allocation(std::size_t bytes) {
  const std::size_t before = limit;
  limit = bytes;
  return before;
}

}  // namespace vstring_test
