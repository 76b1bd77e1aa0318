#include "object.h"

#include <bit>

namespace velmor {

std::size_t text_length(HostObject object) {
  const std::size_t length = length_in_words(object);
  const std::uint64_t last = words(object)[length - 1];
  // Little-endian: the zero bytes at the end of the word are the leading zeros of its value.
  return 8 * (length - kTextWord) - static_cast<std::size_t>(std::countl_zero(last)) / 8;
}

std::span<HostObject> references(HostObject object) {
  switch (tag_of(object)) {
    case kTagSequence:
    case HOST_TAG_LIST:
    case HOST_TAG_SET:
    case kTagQuoted:
    case HOST_TAG_EQUATION:
    case HOST_TAG_RANGE:
    case HOST_TAG_CALL:
    case kTagProcedure:
      return {words(object) + 1, length_in_words(object) - 1};
    default:
      return {};
  }
}

HostObject elements_of(HostObject object) {
  const int tag = tag_of(object);
  if (tag == kTagSequence) return object;
  return tag == HOST_TAG_LIST || tag == HOST_TAG_SET ? words(object)[1] : 0;
}

}  // namespace velmor
