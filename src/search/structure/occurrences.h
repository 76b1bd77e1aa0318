// How often a pattern occurs in a text, in linear time (search/exact/exact.h).
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::search {

// All occurrences, or those that a reader counts from the left who goes on behind each one.
enum class Overlaps { counted, passed_over };

// The empty pattern occurs nowhere.
std::size_t count_occurrences(Bytes pattern, Bytes text, Overlaps overlaps);

}  // namespace vstring::search
