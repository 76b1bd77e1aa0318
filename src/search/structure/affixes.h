// What two texts begin or end with alike, as a piece of the first. That of many texts comes from
// taking one after the other, in linear time: each is compared with what is common so far.
#pragma once
#include "bytes/bytes.h"
#include "bytes/common.h"

namespace vstring::search {

inline Bytes shared_prefix(Bytes a, Bytes b) { return a.first(common_prefix(a, b)); }
inline Bytes shared_suffix(Bytes a, Bytes b) { return a.last(common_suffix(a, b)); }

}  // namespace vstring::search
