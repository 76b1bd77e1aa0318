// Filters: character tests that a user selects by a class name or spells out as an alphabet.
//
// There is one filter alphabet. A filter handed out earlier sees the alphabet that is set now, and
// the class selected last by name is remembered; both outlive a call.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "runtime/status.h"

namespace vstring::charclass {

inline constexpr std::size_t kAlphabetLimit = 256;

// Makes the first 256 bytes of `alphabet` the members that AlphabetFilter accepts.
void set_filter_alphabet(Bytes alphabet);

// The test that `name` selects, remembered as the most recent one. The name "last" gives that one
// again: null before any selection. Status::refused when the name is unknown.
Result<CharTest> filter_named(Bytes name);

// The alphabet of the start, a to z, and nothing selected.
void forget_filters();

}  // namespace vstring::charclass
