// Cuts a script into statements as its text arrives.
//
// A statement ends with ";" (its value is printed) or ":" (it is not), outside strings, quoted
// names, comments, and loops. Only `do` and `end` nest, so this needs no parser, and a faulty
// statement does not spoil the next one; nor does a string that is not closed, which ends the
// statement with its line. At a prompt, a line ends a statement too, unless a bracket is open.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmor {

struct Statement {
  std::string text;  // with its terminator
  bool prints = true;
  std::size_t line = 1;  // of the script, where the text begins
};

enum class EndsOfStatements { kTerminators, kLines };

class StatementSplitter {
 public:
  explicit StatementSplitter(EndsOfStatements ends = EndsOfStatements::kTerminators)
      : ends_(ends) {}

  void feed(std::string_view text);

  // The next whole statement of what was fed.
  std::optional<Statement> next();

  // What is left at the end of the script: a statement without a terminator prints.
  std::optional<Statement> rest();

  // Forgets what is left.
  void drop();

  // Whether a statement has begun but not ended; asks after next() had nothing more.
  bool open() const { return begun_; }

 private:
  enum class State { kPlain, kString, kName, kComment };

  Statement cut(bool prints);
  void pass_plain(char c);
  void finish_word();
  bool line_ends_statement() const;

  EndsOfStatements ends_;
  std::string text_;       // what was fed, from some statement on
  std::size_t begin_ = 0;  // of text_: the end of the last statement
  std::size_t at_ = 0;     // of text_: looked at so far
  State state_ = State::kPlain;
  bool begun_ = false;          // there is more than blanks and comments
  std::string word_;            // the name or number that goes up to at_
  std::size_t loops_ = 0;       // open at at_
  std::size_t brackets_ = 0;    // open at at_
  std::size_t line_ = 1;        // of at_
  std::size_t first_line_ = 1;  // of begin_
};

// Calls `action` with each statement of a whole script.
template <typename Action>
void for_each_statement(std::string_view script, Action action) {
  StatementSplitter splitter;
  splitter.feed(script);
  while (const auto statement = splitter.next()) action(*statement);
  if (const auto statement = splitter.rest()) action(*statement);
}

}  // namespace velmor
