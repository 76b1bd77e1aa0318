#include "language/script.h"

#include <ostream>
#include <utility>

namespace velmor {

Script::Script(Session& session, std::ostream& out, std::ostream& err, std::string name)
    : session_(session), out_(out), err_(err), name_(std::move(name)) {}

void Script::feed(std::string_view text) {
  statements_.feed(text);
  while (const auto statement = statements_.next()) run(*statement);
  out_.flush();
}

bool Script::finish() {
  if (const auto statement = statements_.rest()) run(*statement);
  out_.flush();
  return ok_;
}

void Script::run(const Statement& statement) {
  try {
    session_.execute(statement.text, statement.prints, out_);
    return;
  } catch (const SyntaxError& error) {
    out_.flush();
    err_ << "Error, " << (name_.empty() ? "" : name_ + ", ") << "line "
         << statement.line + error.line() - 1 << ": " << error.what() << std::endl;
  } catch (const Failure& failure) {
    out_.flush();
    err_ << failure.report() << std::endl;
  }
  ok_ = false;
}

}  // namespace velmor
