// A job's expression, evaluated for one record after the other.
#pragma once
#include <cstddef>
#include <string>

#include "language/session.h"
#include "records/answers.h"
#include "records/job.h"
#include "records/record.h"
#include "records/variables.h"

namespace velmor {

class Evaluator {
 public:
  // Throws SyntaxError. Session and job must outlive it, and what commands print becomes messages
  // while it lives.
  Evaluator(Session& session, const Job& job);
  ~Evaluator();
  Evaluator(const Evaluator&) = delete;
  Evaluator& operator=(const Evaluator&) = delete;

  // Appends what the task makes of each record of the chunk.
  void answer(const Chunk& chunk, Answers& answers);

  // What the host has noticed to be wrong with the library; empty when all is well.
  std::string faults() { return velmor_faults(session_.heap()); }

 private:
  void answer(const Record& record, std::size_t file);
  void map(const Record& record, HostObject value);
  void filter(const Record& record, HostObject value);
  void count(HostObject value);
  void begin_record();
  void end_record(const Record& record, bool as_paragraph);
  void note(Message::Kind kind, const std::string& text);
  std::string place(std::size_t file, std::size_t line) const;
  static void note_print(void* evaluator, const char* text);
  static void note_information(void* evaluator, std::int64_t level, const char* package,
                               const char* text);

  Session& session_;
  const Job& job_;
  Expression expression_;
  Variables variables_;
  Answers* answers_ = nullptr;  // of the chunk in progress
  bool told_of_carriage_return_ = false;
};

}  // namespace velmor
