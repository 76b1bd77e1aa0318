// What is to be done with the records of which files.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "language/checker.h"
#include "output/form.h"
#include "records/format.h"

namespace velmor {

struct Job {
  enum class Task {
    kMap,     // write the value of the expression for each record
    kFilter,  // write the records for which it is true
    kCount,   // write how often each value occurs
  };
  Task task = Task::kMap;
  std::string expression;
  std::vector<Source> definitions;  // statements that run before the first record
  std::vector<std::string> files;   // "-" is standard input
  RecordFormat format;
  std::optional<std::string> separator;  // of fields; without one blanks separate them
  OutputForm form = OutputForm::kRaw;
  std::size_t workers = 1;
  std::size_t most_errors = 20;  // that are shown
};

}  // namespace velmor
