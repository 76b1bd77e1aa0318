#include "language/script.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "language/report.h"

namespace velmor {

Script::Script(Session& session, std::ostream& out, std::ostream& err, std::string name,
               EndsOfStatements ends)
    : session_(session), out_(out), err_(err), name_(std::move(name)), statements_(ends) {}

void Script::feed(std::string_view text) {
  statements_.feed(text);
  while (const auto statement = statements_.next()) run(*statement);
  out_.flush();
}

Verdict Script::finish() {
  if (const auto statement = statements_.rest()) run(*statement);
  out_.flush();
  return verdict_;
}

void Script::run(const Statement& statement) {
  try {
    if (before_statement) before_statement();
    session_.execute(statement.text, statement.prints, out_);
  } catch (const Interrupted& failure) {
    err_ << failure.report() << std::endl;
    statements_.drop();
  } catch (const Failure& failure) {
    out_.flush();
    report(err_, failure, statement, name_);
    verdict_ = std::max(verdict_, failure.verdict());
  }
  out_.flush();
  if (after_statement) after_statement();
}

}  // namespace velmor
