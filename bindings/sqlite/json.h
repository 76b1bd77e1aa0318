// Values as JSON (RFC 8259), there and back.
//
// Lists, sets and sequences are arrays, of which lists come back; an equation is {"left": right},
// and an object the sequence of the equations of its members; a range is {"..": [low, high]}.
// Integers have any size. true and false are the names. FAIL becomes null, which is refused: a
// command would take the name for a string. A byte that belongs to no character of UTF-8 stands as
// the lone surrogate \udc80 to \udcff in a string, and comes back from there (as in Python's PEP
// 383), so that no text is lost.
#pragma once
#include <string>
#include <string_view>

#include "heap/velmor_runtime.h"

namespace vstring_sqlite {

// Deeper values are failures, in both directions.
constexpr std::size_t kDeepestJson = 500;

// Throws velmor::Failure, and std::bad_alloc.
HostObject read_json(VelmorHeap* heap, std::string_view text);
void append_json(std::string& out, HostObject value, std::size_t depth = 0);

}  // namespace vstring_sqlite
