// Class specifications: "a-z_", "[^0-9]", "[:alpha:]".
//
// Outer brackets are peeled off. What remains is either ":name:", or a list of items: a byte, a
// range "a-z", or a backslash and the byte it stands for; a leading "^" complements the list. A
// "-" that has no byte before or after it stands for itself.
#pragma once
#include <cstddef>
#include <span>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::charclass {

inline constexpr std::size_t kMostMembers = 255;  // code 0 is never a member

// The members of the class that `spec` describes, written to `members`: those of a named class in
// the order of the name's own table, those of a list by code. An unknown name has none.
// Status::refused when a range ends below its start.
Result<Bytes> ExpandClassSpec(Bytes spec, std::span<Byte, kMostMembers> members);

}  // namespace vstring::charclass
