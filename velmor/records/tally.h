// How often each value occurs.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmor {

// Appends `value` to a text of such values, for Tally::add.
void append_counted(std::string& values, std::string_view value);

class Tally {
 public:
  // Counts each of the values.
  void add(std::string_view values);

  struct Row {
    std::string_view value;
    std::size_t count;
  };
  // The most frequent first; of those that are equally so, the one that came first.
  std::vector<Row> rows() const;

 private:
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };
  std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> indices_;
  std::vector<Row> rows_;  // in the order of first appearance; values are keys of indices_
};

}  // namespace velmor
