#include "object.h"

#include <bit>

#include "velmor_runtime.h"

namespace velmor {

std::size_t text_length(HostObject object) {
  const std::size_t length = length_in_words(object);
  const std::uint64_t last = words(object)[length - 1];
  // Little-endian: the zero bytes at the end of the word are the leading zeros of its value.
  return 8 * (length - kTextWord) - static_cast<std::size_t>(std::countl_zero(last)) / 8;
}

HostObject elements_of(HostObject object) {
  const int tag = tag_of(object);
  if (tag == kTagSequence) return object;
  return tag == HOST_TAG_LIST || tag == HOST_TAG_SET ? words(object)[1] : 0;
}

}  // namespace velmor

using namespace velmor;

int velmor_tag(HostObject object) { return tag_of(object); }

const char* velmor_text(HostObject object) { return is_text(object) ? text_of(object) : nullptr; }

size_t velmor_text_length(HostObject object) { return is_text(object) ? text_length(object) : 0; }

size_t velmor_size(HostObject object) {
  const HostObject sequence = elements_of(object);
  return sequence == 0 ? 0 : sequence_size(sequence);
}

HostObject velmor_element(HostObject object, size_t i) {
  return i >= 1 && i <= velmor_size(object) ? words(elements_of(object))[i] : 0;
}
