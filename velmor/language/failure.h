// What ends the evaluation of a statement.
#pragma once
#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace velmor {

// How a run went, worst last; the number is the exit code of a program that ran it.
enum class Verdict { kFine = 0, kFailed = 1, kUnknownCommand = 2 };

// An error that a command raised (`where` is the command's name), or one of the language itself
// (`where` is empty).
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& message, std::string where = {})
      : std::runtime_error(message), where_(std::move(where)) {}

  const std::string& where() const { return where_; }

  // As a user reads it: "Error, (in search) first argument must be a string".
  std::string report() const {
    return "Error, " + (where_.empty() ? "" : "(in " + where_ + ") ") + what();
  }

  virtual Verdict verdict() const { return Verdict::kFailed; }

  // The line of the statement's text, from 1, in which it arose; 0 while that is not known. The
  // innermost call that knows says so.
  std::size_t line() const { return line_; }
  void set_line(std::size_t line) {
    if (line_ == 0) line_ = line;
  }

 private:
  std::string where_;
  std::size_t line_ = 0;
};

// A statement that is none. `column` counts bytes from 1.
class SyntaxError : public Failure {
 public:
  SyntaxError(const std::string& message, std::size_t line, std::size_t column)
      : Failure(message), column_(column) {
    set_line(line);
  }

  std::size_t column() const { return column_; }

 private:
  std::size_t column_;
};

// A call of a command that is not there.
class UnknownCommand : public Failure {
 public:
  using Failure::Failure;
  Verdict verdict() const override { return Verdict::kUnknownCommand; }
};

// A statement that the user has stopped; what came with it is not to run either.
class Interrupted : public Failure {
 public:
  Interrupted() : Failure("interrupted; all names are as they were before") {}
};

}  // namespace velmor
