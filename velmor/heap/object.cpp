#include "object.h"

#include <cstring>

namespace velmor {

std::size_t text_length(HostObject object) { return std::strlen(text_of(object)); }

HostObject value_of_name(HostObject name) {
  HostObject behind = name;  // goes half as fast: a circle brings both together (R. W. Floyd, 1967)
  for (bool follows = false;; follows = !follows) {
    const HostObject value = words(name)[kValueWord];
    if (value == 0 || value == name) return name;
    if (tag_of(value) != HOST_TAG_NAME) return value;
    name = value;
    if (follows) behind = words(behind)[kValueWord];
    if (name == behind) return 0;
  }
}

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
