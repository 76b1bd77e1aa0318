// The examples of all commands, through their functions and through vs.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "connection.h"
#include "language/parser.h"
#include "lexiva/commands.h"

namespace vstring_sqlite_test {
namespace {

using velmor::Node;
using velmor::NodeKind;

std::string text_literal(const std::string& text) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string hex;
  for (const char c : text) {
    hex += kDigits[static_cast<unsigned char>(c) >> 4];
    hex += kDigits[c & 15];
  }
  return "CAST(x'" + hex + "' AS TEXT)";
}

// The expression in SQL; none for what takes names or procedures.
std::optional<std::string> sql_of(const Node& node) {
  std::string items;
  for (const auto& part : node.parts) {
    const auto item = sql_of(*part);
    if (!item) return {};
    items += (items.empty() ? "" : ", ") + *item;
  }
  switch (node.kind) {
    case NodeKind::kString:
      return text_literal(node.text);
    case NodeKind::kInteger:
    case NodeKind::kFloat:
      return node.text;
    case NodeKind::kName:
      if (node.text == "NULL") return node.text;
      if (node.text == "true" || node.text == "false") return "json('" + node.text + "')";
      return text_literal(node.text);
    case NodeKind::kList:
      return "json_array(" + items + ")";
    case NodeKind::kEquation:
      return "json_object(" + items + ")";
    case NodeKind::kRange:
      return "vs_range(" + items + ")";
    case NodeKind::kCall:
      if (velmor::lexiva::find(node.text) == nullptr) return {};
      return "vs_" + node.text + "(" + items + ")";
    default:
      return {};
  }
}

// The parts of a sequence; of anything else, that alone.
std::vector<const Node*> parts_of(const Node& tree) {
  if (tree.kind != NodeKind::kSequence) return {&tree};
  std::vector<const Node*> parts;
  for (const auto& part : tree.parts) parts.push_back(part.get());
  return parts;
}

std::optional<std::string> sql_of_result(const std::vector<const Node*>& results) {
  std::string items;
  for (const Node* const result : results) {
    const auto item = sql_of(*result);
    if (!item) return {};
    items += (items.empty() ? "" : ", ") + *item;
  }
  if (results.size() > 1) return "json_array(" + items + ")";
  return items.starts_with("json('") ? items == "json('true')" ? "1" : "0" : items;
}

// A condition that holds when the functions give what the row says; none when they cannot.
std::optional<std::string> condition(const velmor::lexiva::Command& command) {
  const auto example = velmor::parse_statement(command.example);
  const auto result = velmor::parse_statement(*command.result == '\0' ? "NULL" : command.result);
  const auto calls = parts_of(*example), results = parts_of(*result);
  if (calls.size() > 1 && calls.size() != results.size()) return {};
  std::string all = "1";
  for (std::size_t i = 0; i < calls.size(); ++i) {
    const auto call = sql_of(*calls[i]);
    const auto expected = sql_of_result(calls.size() == 1 ? results : std::vector{results[i]});
    if (!call || !expected) return {};
    all += " AND (" + *call + ") IS (" + *expected + ")";
  }
  return all;
}

TEST(SqliteExamples, GiveTheirResults) {
  Connection db;
  std::string through_vs_alone;
  testing::internal::CaptureStdout();  // wildTester writes there
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands) {
      SCOPED_TRACE(command.name);
      const std::string result = *command.result == '\0' ? "NULL" : command.result;
      EXPECT_EQ(db.run("SELECT vs(?1) IS vs(?2)", {command.example, result}), "1");
      const auto holds = condition(command);
      const Answer answer = holds ? db.run("SELECT " + *holds) : Answer{SQLITE_ERROR, {}};
      if (answer.code == SQLITE_OK)
        EXPECT_EQ(answer.text, "1") << *holds;
      else
        through_vs_alone += std::string(command.name) + " ";
    }
  }
  testing::internal::GetCapturedStdout();
  // They take a name or a procedure, or have an example that is no list of single values.
  EXPECT_EQ(through_vs_alone,
            "dictCreate dictObjSearch dictObjFree map filter reject foldl foldr groupby tabulate "
            "randomise ipsum ");
}

}  // namespace
}  // namespace vstring_sqlite_test
