// What ends the evaluation of a statement.
#pragma once
#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace velmor {

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

 private:
  std::string where_;
};

// A statement that is none: `line` counts from 1 within the text that was parsed.
class SyntaxError : public Failure {
 public:
  SyntaxError(const std::string& message, std::size_t line) : Failure(message), line_(line) {}

  std::size_t line() const { return line_; }

 private:
  std::size_t line_;
};

}  // namespace velmor
