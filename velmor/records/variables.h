// The names that stand for a record and what belongs to it.
//
//   _   its text           _1, _2, ...  its fields       _n  the line it begins on, within its file
//   _id the first word of a FASTA header                 _file  the name of its file
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "heap/velmor_runtime.h"
#include "records/record.h"

namespace velmor {

class Variables {
 public:
  // Only the names that occur in `sources`, texts of the language, are given values.
  Variables(VelmorHeap* heap, const std::vector<std::string>& sources,
            std::optional<std::string> separator);

  // Throws Failure when the record holds a zero byte.
  void bind(const Record& record, const std::string& file);

 private:
  struct Field {
    std::size_t number;
    HostObject name;
  };

  void note(const std::string& name);
  void assign(HostObject name, std::string_view text);

  VelmorHeap* heap_;
  std::optional<std::string> separator_;
  HostObject text_ = 0, line_ = 0, file_ = 0, id_ = 0;  // 0: the name does not occur
  std::vector<Field> field_names_;
  std::size_t last_field_ = 0;
  std::vector<std::string_view> fields_;
};

}  // namespace velmor
