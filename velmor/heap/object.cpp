#include "object.h"

#include <cstring>

namespace velmor {

std::size_t text_length(HostObject object) { return std::strlen(text_of(object)); }

std::span<HostObject> references(HostObject object) {
  switch (tag_of(object)) {
    case HOST_TAG_SEQUENCE:
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
  if (tag == HOST_TAG_SEQUENCE) return object;
  return tag == HOST_TAG_LIST || tag == HOST_TAG_SET ? words(object)[1] : 0;
}

}  // namespace velmor
