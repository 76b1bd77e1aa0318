#include "records/tally.h"

#include <algorithm>
#include <cstring>

namespace velmor {

void append_counted(std::string& values, std::string_view value) {
  const std::size_t size = value.size();
  values.append(reinterpret_cast<const char*>(&size), sizeof size);
  values += value;
}

void Tally::add(std::string_view values) {
  while (!values.empty()) {
    std::size_t size = 0;
    std::memcpy(&size, values.data(), sizeof size);
    const std::string_view value = values.substr(sizeof size, size);
    values.remove_prefix(sizeof size + size);
    auto found = indices_.find(value);
    if (found == indices_.end()) {
      found = indices_.emplace(value, rows_.size()).first;
      rows_.push_back({found->first, 0});
    }
    ++rows_[found->second].count;
  }
}

std::vector<Tally::Row> Tally::rows() const {
  std::vector<Row> sorted = rows_;
  std::ranges::stable_sort(sorted, std::ranges::greater(), &Row::count);
  return sorted;
}

}  // namespace velmor
