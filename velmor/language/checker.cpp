#include "language/checker.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "language/parser.h"
#include "language/report.h"
#include "language/statements.h"
#include "language/syntax.h"

namespace velmor {

void Checker::learn(const Node& tree) {
  if (tree.kind == NodeKind::kAssign || tree.kind == NodeKind::kFor) assigned_.insert(tree.text);
  for (const auto& part : tree.parts) learn(*part);
}

void Checker::check(const Node& tree, Scope* scope) {
  if (tree.kind == NodeKind::kUnevaluated) return;
  if (tree.kind == NodeKind::kCall && (scope == nullptr || scope->slot(tree.text) == Node::kNone))
    check_call(tree);
  if (tree.kind == NodeKind::kAssign || tree.kind == NodeKind::kFor) check_target(tree);
  Scope inner{.outer = scope};
  if (tree.kind == NodeKind::kProcedure) {
    for (std::size_t i = 0; i + 1 < tree.parts.size(); ++i)
      inner.parameters.push_back(tree.parts[i]->text);
    scope = &inner;
  }
  for (const auto& part : tree.parts) check(*part, scope);
}

void Checker::check_call(const Node& tree) const {
  if (session_.symbolic || session_.find(tree.text) != nullptr || session_.has_value(tree.text) ||
      assigned_.contains(tree.text))
    return;
  UnknownCommand problem = session_.unknown(tree.text);
  problem.set_line(tree.line);
  throw problem;
}

void Checker::check_target(const Node& tree) const {
  if (!session_.is_protected(tree.text)) return;
  Failure problem("cannot assign to " + tree.text +
                  (session_.find(tree.text) != nullptr ? ", which is a command" : ""));
  problem.set_line(tree.line);
  throw problem;
}

Verdict check(Session& session, std::span<const Source> sources, std::ostream& err) {
  Verdict verdict = Verdict::kFine;
  struct Parsed {
    const Source& source;
    Statement statement;
    std::unique_ptr<Node> tree;
  };
  std::vector<Parsed> program;
  Checker checker(session);
  const auto guarded = [&](const Source& source, const Statement& statement, auto action) {
    try {
      action();
    } catch (const Failure& failure) {
      report(err, failure, statement, source.name);
      verdict = std::max(verdict, failure.verdict());
    }
  };
  for (const Source& source : sources) {
    for_each_statement(source.text, [&](const Statement& statement) {
      guarded(source, statement, [&] {
        program.push_back({source, statement, parse_statement(statement.text)});
        checker.learn(*program.back().tree);
      });
    });
  }
  for (const Parsed& parsed : program)
    guarded(parsed.source, parsed.statement, [&] { checker.check(*parsed.tree); });
  return verdict;
}

}  // namespace velmor
