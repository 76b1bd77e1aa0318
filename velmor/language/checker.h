// Finds what is wrong with a program before any of it runs: syntax errors, calls of commands that
// are not there, assignments to names that cannot be assigned.
#pragma once
#include <iosfwd>
#include <span>
#include <string>
#include <unordered_set>

#include "language/session.h"

namespace velmor {

struct Source {
  std::string text;
  std::string name = {};  // of its file, told with every problem
};

// Checks all statements of the sources, which are to run one after the other in this session, and
// reports every problem on `err` as Session::run would.
Verdict check(Session& session, std::span<const Source> sources, std::ostream& err);

// The same for single trees.
class Checker {
 public:
  explicit Checker(Session& session) : session_(session) {}

  // Takes the names that the tree assigns, which may be procedures, for known.
  void learn(const Node& tree);

  // Throws the first problem of a tree.
  void check(const Node& tree) { check(tree, nullptr); }

 private:
  void check(const Node& tree, Scope* scope);
  void check_call(const Node& tree) const;
  void check_target(const Node& tree) const;

  Session& session_;
  std::unordered_set<std::string> assigned_;
};

}  // namespace velmor
