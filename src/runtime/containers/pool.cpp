// Region pool: many small records, released all at once.
//
// A pool is a stack of blocks. Each block saves in its first words the cursor as it was before the
// block was pushed, so that emptying the pool is a walk back down the stack; up to ten emptied
// blocks are kept for the next use.
#include <cstdlib>
#include <cstring>

#include "host/vstring.h"

namespace {

constexpr std::size_t kGranule = 16;
constexpr std::size_t kBlockExtra = 8124;  // what a block holds beyond the request that made it
constexpr int kMaxSpares = 10;
static_assert(sizeof(VstringBlock) == 32);

VstringBlock* take_spare(VstringPool* pool) {
  VstringBlock* const block = pool->spares;
  pool->spares = block->previous;
  --pool->spare_count;
  return block;
}

VstringBlock* new_block(std::size_t n) {
  auto* const block = static_cast<VstringBlock*>(std::malloc(n + kBlockExtra));
  if (block != nullptr) block->end = reinterpret_cast<char*>(block) + n + kBlockExtra;
  return block;
}

void push(VstringCursor* cursor, VstringBlock* block) {
  char* const end = block->end;
  block->previous = cursor->block;
  block->next_free = cursor->next_free;
  block->end = cursor->end;
  *cursor = {block, reinterpret_cast<char*>(block + 1), end};
}

}  // namespace

VstringPool* pool_create() {
  auto* const pool = static_cast<VstringPool*>(std::malloc(sizeof(VstringPool)));
  if (pool_init(pool) != nullptr) return pool;
  std::free(pool);
  return nullptr;
}

VstringPool* pool_init(VstringPool* pool) {
  if (pool == nullptr) return nullptr;
  *pool = {nullptr, nullptr, 0};
  pool->cursor = static_cast<VstringCursor*>(std::malloc(sizeof(VstringCursor)));
  if (pool->cursor == nullptr) return nullptr;
  *pool->cursor = {nullptr, nullptr, nullptr};
  return pool;
}

void* pool_alloc(VstringPool* pool, std::size_t n) {
  if (pool == nullptr || pool->cursor == nullptr) return nullptr;
  if (n > PTRDIFF_MAX - kBlockExtra - kGranule) return nullptr;
  n = (n + kGranule - 1) / kGranule * kGranule;
  VstringCursor* const cursor = pool->cursor;
  // A spare that is too small stays pushed, unused, until the pool is emptied.
  while (static_cast<std::size_t>(cursor->end - cursor->next_free) < n) {
    VstringBlock* const block = pool->spares != nullptr ? take_spare(pool) : new_block(n);
    if (block == nullptr) return nullptr;
    push(cursor, block);
  }
  void* const allocated = cursor->next_free;
  if (n > 0) cursor->next_free += n;
  return allocated;
}

void* pool_alloc0(VstringPool* pool, std::size_t count, std::size_t size) {
  std::size_t n = 0;
  if (__builtin_mul_overflow(count, size, &n)) return nullptr;
  void* const allocated = pool_alloc(pool, n);
  if (allocated != nullptr) std::memset(allocated, 0, n);
  return allocated;
}

char* pool_strdup(VstringPool* pool, const char* text) {
  if (pool == nullptr || text == nullptr) return nullptr;
  const std::size_t size = std::strlen(text) + 1;
  void* const copy = pool_alloc(pool, size);
  return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

void pool_free(VstringPool* pool) {
  if (pool == nullptr || pool->cursor == nullptr) return;
  VstringCursor* const cursor = pool->cursor;
  while (VstringBlock* const block = cursor->block) {
    char* const end = cursor->end;
    *cursor = {block->previous, block->next_free, block->end};
    if (pool->spare_count < kMaxSpares) {
      block->previous = pool->spares;
      block->end = end;
      pool->spares = block;
      ++pool->spare_count;
    } else {
      std::free(block);
    }
  }
}

void pool_destroy(VstringPool* pool) {
  if (pool == nullptr) return;
  pool_free(pool);
  while (pool->spares != nullptr) std::free(take_spare(pool));
  std::free(pool->cursor);
  pool->cursor = nullptr;
}
