#include "heap.h"

namespace velmor {

std::size_t Heap::collect() {
  try {
    mark();
  } catch (...) {  // no memory for the stack: forget this attempt
    mark_stack_.clear();
    for (std::uint64_t* object : objects_) *object &= ~kMarkBit;
    throw;
  }
  return sweep();
}

void Heap::mark() {
  std::erase_if(bound_names_, [](HostObject name) {
    const bool empty = words(name)[kValueWord] == 0 && words(name)[kAttributeWord] == 0;
    if (empty) words(name)[0] &= ~kBoundBit;
    return empty;
  });
  for (const HostObject name : bound_names_) {
    mark(words(name)[kValueWord]);
    mark(words(name)[kAttributeWord]);
  }
  for (const auto& [object, count] : roots_.counts()) mark(object);
  for (const auto& [object, count] : protections_.counts()) mark(object);
}

// Marks all that `object` leads to. The stack holds what is left of each object on the path to the
// one at hand, so it grows with the depth of an expression, not with its breadth.
void Heap::mark(HostObject root) {
  const auto visit = [this](HostObject object) {
    if (object == 0 || is_immediate(object) || object == null_) return;
    if (tag_of(object) == HOST_TAG_NAME || (words(object)[0] & kMarkBit) != 0) return;
    words(object)[0] |= kMarkBit;
    if (const auto parts = references(object); !parts.empty())
      mark_stack_.push_back({parts.data(), parts.data() + parts.size()});
  };
  visit(root);
  while (!mark_stack_.empty()) {
    Path& path = mark_stack_.back();
    const HostObject object = *path.next++;
    if (path.next == path.end) mark_stack_.pop_back();
    visit(object);
  }
}

std::size_t Heap::sweep() {
  std::size_t kept = 0;
  for (std::uint64_t* object : objects_) {
    if ((*object & kMarkBit) != 0) {
      *object &= ~kMarkBit;
      objects_[kept++] = object;
    } else {
      const std::size_t length = length_in_words(object_of(object));
      words_in_use_ -= length;
      blocks_.give_back(object, length);
    }
  }
  const std::size_t freed = objects_.size() - kept;
  objects_.resize(kept);
  return freed;
}

}  // namespace velmor
