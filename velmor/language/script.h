// Runs statements as their text arrives.
#pragma once
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include "language/session.h"
#include "language/statements.h"

namespace velmor {

class Script {
 public:
  // Values go to `out`, failures to `err`, each flushed in its turn, so that both interleave as
  // they arose. `name` as in Session::run.
  Script(Session& session, std::ostream& out, std::ostream& err, std::string name = {},
         EndsOfStatements ends = EndsOfStatements::kTerminators);

  void feed(std::string_view text);  // runs the statements that end in what was fed so far
  Verdict finish();                  // runs what is left; how all of it went

  void drop() { statements_.drop(); }  // forgets a statement that has not ended

  // Whether a statement has begun but not ended.
  bool open() const { return statements_.open(); }

  // Called around each statement; what `before` prepares, `after` ends, also when it failed.
  std::function<void()> before_statement, after_statement;

 private:
  void run(const Statement& statement);

  Session& session_;
  std::ostream& out_;
  std::ostream& err_;
  std::string name_;
  StatementSplitter statements_;
  Verdict verdict_ = Verdict::kFine;
};

}  // namespace velmor
