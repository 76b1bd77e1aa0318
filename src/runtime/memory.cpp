#include "runtime/memory.h"

#include <cstdlib>

namespace vstring::memory {
namespace {

struct alignas(16) Header {
  Header* older;
  Header* newer;
};

Header* newest = nullptr;
Evaluation current = {nullptr, nullptr};

// The analyser takes the list for the block that was just unlinked from it and freed.
// NOLINTNEXTLINE(clang-analyzer-unix.Malloc)
Header* header_of(void* block) { return static_cast<Header*>(block) - 1; }

void link_newest(Header* header) {
  header->older = newest;
  header->newer = nullptr;
  if (newest != nullptr) newest->newer = header;
  newest = header;
}

void unlink(Header* header) {
  if (header->older != nullptr) header->older->newer = header->newer;
  if (header->newer != nullptr) {
    header->newer->older = header->older;
  } else {
    newest = header->older;
  }
}

}  // namespace

void* reallocate(void* block, std::size_t bytes) {
  if (bytes > PTRDIFF_MAX - sizeof(Header)) return nullptr;
  if (block == nullptr) {
    auto* const fresh = static_cast<Header*>(std::malloc(sizeof(Header) + bytes));
    if (fresh == nullptr) return nullptr;
    link_newest(fresh);
    return fresh + 1;
  }
  Header* const old = header_of(block);
  const bool is_boundary = current.boundary == old;
  auto* const moved = static_cast<Header*>(std::realloc(old, sizeof(Header) + bytes));
  if (moved == nullptr) return nullptr;
  // Its place in the order of age stays, only its address may be new.
  if (moved->older != nullptr) moved->older->newer = moved;
  if (moved->newer != nullptr) {
    moved->newer->older = moved;
  } else {
    newest = moved;
  }
  if (is_boundary) current.boundary = moved;
  return moved + 1;
}

void release(void* block) {
  if (block == nullptr) return;
  Header* const header = header_of(block);
  unlink(header);
  std::free(header);
}

void begin_call() {
  if (newest == nullptr) return;
  // Stacks grow downwards: a frame above the waiting one proves that the host has left the latter.
  if (current.frame != nullptr && __builtin_frame_address(0) >= current.frame) {
    current = {nullptr, nullptr};
  }
  const void* const boundary = current.frame != nullptr ? current.boundary : nullptr;
  while (newest != nullptr && newest != boundary) release(newest + 1);
}

Evaluation begin_evaluation(const void* frame) {
  const Evaluation outer = current;
  current = {newest, frame};
  return outer;
}

void end_evaluation(Evaluation outer) { current = outer; }

}  // namespace vstring::memory
