#include "heap.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string>
#include <unordered_set>

#include "big_integer.h"
#include "print.h"

namespace velmor {
namespace {

std::size_t words_for_text(std::string_view text, const TextLayout& layout) {
  const std::size_t needed = kTextWord + text.size() / 8 + 1;
  return (needed + layout.multiple - 1) / layout.multiple * layout.multiple;
}

// Writes header, empty slots, text and what follows it over `length` words.
void lay_out_text(std::uint64_t* object, int tag, std::size_t length, std::string_view text,
                  const TextLayout& layout) {
  constexpr std::uint64_t kEachByte = 0x0101010101010101;
  object[0] = header(tag, length);
  object[1] = object[2] = 0;
  for (std::size_t i = kTextWord + text.size() / 8; i < length; ++i) {
    object[i] = kEachByte * layout.filler;
  }
  auto* const bytes = reinterpret_cast<char*>(object + kTextWord);
  if (!text.empty()) std::memcpy(bytes, text.data(), text.size());
  bytes[text.size()] = '\0';
}

}  // namespace

bool CountedObjects::remove(HostObject object) {
  const auto found = counts_.find(object);
  if (found == counts_.end()) return false;
  if (--found->second == 0) counts_.erase(found);
  return true;
}

Heap::Heap()
    : null_words_{header(HOST_TAG_SEQUENCE, 1)},
      null_(object_of(null_words_)),
      true_(name("true")),
      false_(name("false")),
      fail_(name("FAIL")) {
  for (const HostObject constant : {true_, false_, fail_}) protect(constant);
}

Heap::~Heap() {
  for (std::uint64_t* object : objects_)
    blocks_.give_back(object, length_in_words(object_of(object)));
  for (const auto& [text, name] : names_) blocks_.give_back(words(name), length_in_words(name));
}

// Small enough to be worth it in each maker: a call that makes a string pays for little else.
inline std::uint64_t* Heap::allocate(int tag, std::size_t length) {
  if (length > kMaxLength) throw std::length_error("object too large");
  if (objects_.size() == objects_.capacity()) objects_.reserve(2 * objects_.size() + 64);
  std::uint64_t* object = blocks_.take(length);
  object[0] = header(tag, length);
  objects_.push_back(object);
  words_in_use_ += length;
  return object;
}

HostObject Heap::integer(std::int64_t value) {
  if (value >= kMinImmediate && value <= kMaxImmediate) return immediate(value);
  const bool negative = value < 0;
  const auto magnitude = static_cast<std::uint64_t>(value);
  return record(negative ? HOST_TAG_NEGATIVE : HOST_TAG_NON_NEGATIVE,
                {negative ? 0 - magnitude : magnitude});
}

HostObject Heap::big_integer(Magnitude magnitude) {
  while (!magnitude.limbs.empty() && magnitude.limbs.back() == 0) magnitude.limbs.pop_back();
  if (const auto value = to_int64(magnitude)) return integer(*value);
  std::uint64_t* object = allocate(magnitude.negative ? HOST_TAG_NEGATIVE : HOST_TAG_NON_NEGATIVE,
                                   magnitude.limbs.size() + 1);
  std::copy(magnitude.limbs.begin(), magnitude.limbs.end(), object + 1);
  return object_of(object);
}

HostObject Heap::floating(double value) {
  return record(kTagFloat, {std::bit_cast<std::uint64_t>(value)});
}

// Requires a text without NUL.
inline HostObject Heap::string_of(std::string_view text) {
  const std::size_t length = words_for_text(text, text_layout);
  std::uint64_t* object = allocate(HOST_TAG_STRING, length);
  lay_out_text(object, HOST_TAG_STRING, length, text, text_layout);
  return object_of(object);
}

HostObject Heap::string(std::string_view text) {
  return string_of(text.substr(0, text.find('\0')));
}

HostObject Heap::string(const char* text) { return string_of(text); }

HostObject Heap::name(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  if (const auto found = names_.find(text); found != names_.end()) return found->second;
  const std::size_t length = words_for_text(text, text_layout);
  std::uint64_t* object = blocks_.take(length);
  lay_out_text(object, HOST_TAG_NAME, length, text, text_layout);
  const HostObject name = object_of(object);
  try {
    names_.emplace(text_view(name), name);
  } catch (...) {
    blocks_.give_back(object, length);
    throw;
  }
  return name;
}

HostObject Heap::sequence(std::size_t n) {
  if (n == 0) return null_;
  std::uint64_t* object = allocate(HOST_TAG_SEQUENCE, n + 1);
  std::fill_n(object + 1, n, null_);
  return object_of(object);
}

HostObject Heap::sequence(std::span<const HostObject> items) {
  const auto elements = [](const HostObject& item) {
    return tag_of(item) == HOST_TAG_SEQUENCE ? references(item) : std::span(&item, 1);
  };
  std::size_t n = 0;
  for (const HostObject& item : items) n += elements(item).size();
  const HostObject result = sequence(n);
  HostObject* out = words(result) + 1;
  for (const HostObject& item : items) out = std::ranges::copy(elements(item), out).out;
  return result;
}

HostObject Heap::set(HostObject sequence_of_all) {
  // Objects print alike just when they are alike.
  std::unordered_set<std::string> seen;
  std::vector<HostObject> kept;
  for (const HostObject element : references(sequence_of_all))
    if (seen.insert(print(element)).second) kept.push_back(element);
  return record(HOST_TAG_SET, {sequence(kept)});
}

HostObject Heap::boolean(std::int64_t value) const {
  return value == 0 ? false_ : value == -1 ? fail_ : true_;
}

bool Heap::owns(HostObject object) const {
  if (is_immediate(object) || object == null_) return true;
  // The newest first: what is asked about was mostly made just now.
  if (std::find(objects_.rbegin(), objects_.rend(), words(object)) != objects_.rend()) return true;
  return std::ranges::any_of(names_, [=](const auto& entry) { return entry.second == object; });
}

HostObject Heap::record(int tag, std::initializer_list<HostObject> parts) {
  std::uint64_t* object = allocate(tag, parts.size() + 1);
  std::ranges::copy(parts, object + 1);
  return object_of(object);
}

void Heap::set_slot(HostObject name, std::size_t word, HostObject value) {
  if ((words(name)[0] & kBoundBit) == 0 && value != 0) {
    bound_names_.push_back(name);
    words(name)[0] |= kBoundBit;
  }
  words(name)[word] = value;
}

}  // namespace velmor
