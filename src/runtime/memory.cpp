#include "runtime/memory.h"

#include <cstdlib>

namespace vstring::memory {
namespace {

// The analyser takes the list for the block that was just unlinked from it and freed.
// NOLINTNEXTLINE(clang-analyzer-unix.Malloc)
Held* header_of(void* block) { return static_cast<Held*>(block) - 1; }
static_assert(sizeof(Held) % 16 == 0, "blocks are aligned to 16 bytes");

// Whether the call that holds it has been left, seen from one whose frame ends at `frame_end`.
bool is_abandoned(const void* holder, const void* frame_end) {
  return reinterpret_cast<std::uintptr_t>(holder) < reinterpret_cast<std::uintptr_t>(frame_end);
}

Held* newest_abandoned(const void* frame_end) {
  Held* held = state.newest;
  while (held != nullptr && !is_abandoned(held->holder, frame_end)) held = held->older;
  return held;
}

}  // namespace

constinit State state = {};

void hold(Held* held, const void* holder, void (*let_go)(Held* held, const void* host)) {
  *held = {state.newest, nullptr, holder, let_go};
  if (state.newest != nullptr) state.newest->newer = held;
  state.newest = held;
}

void put_down(Held* held) {
  if (held->older != nullptr) held->older->newer = held->newer;
  if (held->newer != nullptr) {
    held->newer->older = held->older;
  } else {
    state.newest = held->older;
  }
}

void* reallocate(void* block, std::size_t bytes, const void* holder) {
  if (bytes > PTRDIFF_MAX - sizeof(Held)) return nullptr;
  if (block == nullptr) {
    auto* const fresh = static_cast<Held*>(std::malloc(sizeof(Held) + bytes));
    if (fresh == nullptr) return nullptr;
    hold(fresh, holder, nullptr);
    return fresh + 1;
  }
  auto* const moved = static_cast<Held*>(std::realloc(header_of(block), sizeof(Held) + bytes));
  if (moved == nullptr) return nullptr;
  // Its place in the order of age stays, only its address may be new.
  moved->holder = holder;
  if (moved->older != nullptr) moved->older->newer = moved;
  if (moved->newer != nullptr) {
    moved->newer->older = moved;
  } else {
    state.newest = moved;
  }
  return moved + 1;
}

void release(void* block) {
  if (block == nullptr) return;
  Held* const header = header_of(block);
  put_down(header);
  std::free(header);
}

void let_go_of_abandoned(const void* host, const void* frame_end) {
  if (is_abandoned(state.scratch_holder, frame_end)) state.scratch_holder = nullptr;
  // From the start each time: what is let go of may call the host, and the host commands.
  while (Held* const held = newest_abandoned(frame_end)) {
    put_down(held);
    if (held->let_go != nullptr) {
      held->let_go(held, host);
    } else {
      std::free(held);
    }
  }
}

void free_blocks() {
  Held* held = state.newest;
  state.newest = nullptr;
  while (held != nullptr) {
    Held* const older = held->older;
    if (held->let_go == nullptr) std::free(held);
    held = older;
  }
}

}  // namespace vstring::memory
