// One table of heavy calls for all that is measured of every command: its growth, what it does when
// memory or the host fail, how much stack it takes.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

namespace vstring_test {

// Calls of every command that reads a text of any length, on the inputs that are hardest for its
// usual shortcuts, of n bytes; a tenth of them where the host makes an object for each. Linear all.
std::vector<std::string> linear_calls(std::size_t n);

// The same for pairs of regular expressions and texts, all of which match late, slowly or not at
// all.
std::vector<std::string> regex_calls(std::size_t n);

// Calls of the other commands, of sizes of their own.
std::vector<std::string> other_calls();

// Calls whose patterns and formats reach the limits of their kind: length, nesting, number.
std::vector<std::string> limit_calls(std::size_t n);

// Random ones, and those that make dictionaries and answer with their numbers.
inline bool never_the_same(const std::string& call) {
  return call.starts_with("randomise") || call.starts_with("dictCreate");
}

}  // namespace vstring_test
