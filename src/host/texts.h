// The texts of a list, as the algorithms take them.
#pragma once
#include "host/object.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring {

// Appends the text of every element, each of which is a string or a name.
inline Status texts_of(Elements elements, HeldArray<Bytes>& texts) {
  if (!texts.reserve(texts.size() + elements.size())) return Status::out_of_memory;
  for (const HostObject element : elements) {
    if (!texts.push_back(text_of(element))) return Status::out_of_memory;
  }
  return Status::ok;
}

}  // namespace vstring
