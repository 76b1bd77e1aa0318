// The objects of a host: making them, naming them, and collecting those that nothing reaches.
//
// Collection is by mark and sweep (J. McCarthy, "Recursive functions of symbolic expressions and
// their computation by machine", 1960) with the path to the object at hand on a stack of our own.
// Its cost is that of the objects made since the last one and of those reached; names are kept for
// good and cost nothing unless they have a value.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "big_integer.h"
#include "blocks.h"
#include "object.h"

namespace velmor {

// Objects with the number of times that each was added.
class CountedObjects {
 public:
  void add(HostObject object) { ++counts_[object]; }
  bool remove(HostObject object);  // false when it is not there
  const std::unordered_map<HostObject, std::size_t>& counts() const { return counts_; }

 private:
  std::unordered_map<HostObject, std::size_t> counts_;
};

// The size of a text's object in words is a multiple of this, and what follows the terminator is
// so.
struct TextLayout {
  std::size_t multiple = 1;
  unsigned char filler = 0;
};

// What makes an object throws std::bad_alloc, or std::length_error when the header cannot state
// its length.
class Heap {
 public:
  Heap();
  ~Heap();
  Heap(const Heap&) = delete;
  Heap& operator=(const Heap&) = delete;

  HostObject integer(std::int64_t value);
  HostObject big_integer(Magnitude magnitude);
  HostObject floating(double value);
  HostObject string(std::string_view text);  // up to its first NUL
  HostObject string(const char* text);
  HostObject name(std::string_view text);                  // the one name with this text
  HostObject sequence(std::size_t n);                      // of n elements, all NULL
  HostObject sequence(std::span<const HostObject> items);  // sequences among them are spliced in
  HostObject list(HostObject sequence) { return record(HOST_TAG_LIST, {sequence}); }
  HostObject set(HostObject sequence);  // drops later duplicates, keeps the order
  HostObject equation(HostObject l, HostObject r) { return record(HOST_TAG_EQUATION, {l, r}); }
  HostObject range(HostObject l, HostObject r) { return record(HOST_TAG_RANGE, {l, r}); }
  HostObject function(HostObject f, HostObject args) { return record(HOST_TAG_CALL, {f, args}); }
  HostObject procedure(HostObject text, HostObject data) {
    return record(kTagProcedure, {text, data});
  }
  HostObject quoted(HostObject object) { return record(kTagQuoted, {object}); }

  TextLayout text_layout;

  HostObject null() const { return null_; }
  HostObject boolean(std::int64_t value) const;  // 0 false, -1 FAIL, else true

  // A protected name cannot be assigned; true, false and FAIL are protected from the start.
  void protect(HostObject name) { words(name)[0] |= kProtectedBit; }
  static bool is_protected(HostObject name) { return (words(name)[0] & kProtectedBit) != 0; }

  // Slots of a name; 0 for none.
  void set_value(HostObject name, HostObject value) { set_slot(name, kValueWord, value); }
  void set_attribute(HostObject name, HostObject value) { set_slot(name, kAttributeWord, value); }

  // All names with a slot filled, and perhaps some that had one.
  std::span<const HostObject> bound_names() const { return bound_names_; }

  CountedObjects& roots() { return roots_; }
  CountedObjects& protections() { return protections_; }
  const CountedObjects& protections() const { return protections_; }

  std::size_t collect();  // returns how many objects it freed
  std::size_t object_count() const { return objects_.size(); }
  std::size_t object_bytes() const { return 8 * words_in_use_; }
  bool owns(HostObject object) const;  // immediates included; slow, for reports

 private:
  HostObject string_of(std::string_view text);
  std::uint64_t* allocate(int tag, std::size_t length);
  HostObject record(int tag, std::initializer_list<HostObject> parts);
  void set_slot(HostObject name, std::size_t word, HostObject value);
  void mark();
  void mark(HostObject object);
  std::size_t sweep();

  Blocks blocks_;
  std::vector<std::uint64_t*> objects_;  // all but names and NULL
  std::size_t words_in_use_ = 0;
  std::unordered_map<std::string_view, HostObject> names_;
  std::vector<HostObject> bound_names_;  // those that have kBoundBit set
  CountedObjects roots_, protections_;
  struct Path {
    const HostObject *next, *end;
  };
  std::vector<Path> mark_stack_;
  std::uint64_t null_words_[1];
  HostObject null_;
  HostObject true_, false_, fail_;
};

}  // namespace velmor
