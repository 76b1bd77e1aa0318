// Answers on their way to standard output and standard error.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "language/failure.h"
#include "records/answers.h"
#include "records/job.h"
#include "records/progress.h"
#include "records/tally.h"

namespace velmor {

class Delivery {
 public:
  Delivery(const Job& job, Progress& progress);

  // Each message is shown behind the output that came before it. Throws std::runtime_error when
  // the output cannot be written, and so do the next two.
  void deliver(const Answers& answers);

  // Writes what was delivered so far.
  void flush();

  // Ends the run: writes what is left, the counts and the number of errors that were not shown.
  void finish();

  // Shows an error that belongs to no record.
  void complain(const std::string& error);

  Verdict verdict() const { return verdict_; }

 private:
  void write(std::string_view out);
  void show(const Message& message);
  void show_error(const Message& message, Verdict verdict);
  void show(const std::string& line);
  void write_counts();

  const Job& job_;
  Progress& progress_;
  const bool to_terminal_;
  Tally tally_;
  std::string pending_;  // for standard output
  bool ended_ = true;    // whether the last record written was
  std::size_t errors_ = 0;
  bool warned_ = false;
  Verdict verdict_ = Verdict::kFine;
};

}  // namespace velmor
