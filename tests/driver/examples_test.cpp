// The binding table is complete and tells the truth.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "lexiva/commands.h"
#include "lexiva/keywords.h"
#include "lexiva/methods.h"
#include "support/check.h"

namespace vstring_test {
namespace {

TEST(BindingTable, ExamplesGiveWhatTheySay) {
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands) {
      SCOPED_TRACE(command.name);
      EXPECT_EQ(&command, velmor::lexiva::find(command.name));
      Check({{command.example, command.result}});
    }
  }
}

// Help tells of every argument that a signature names, and what comes back.
TEST(BindingTable, HelpIsComplete) {
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands) {
      SCOPED_TRACE(command.name);
      EXPECT_STRNE(command.returns, "");
      EXPECT_EQ(std::string(command.signature).ends_with("()"),
                velmor::lexiva::arguments_of(command).empty());
    }
  }
}

// Each command that is listed has one row that tells its cost; the rows name nothing else.
TEST(BindingTable, HasAMethodForEveryListedCommand) {
  std::multiset<std::string> rows, listed;
  for (const velmor::lexiva::Method& method : velmor::lexiva::methods()) {
    std::istringstream names{std::string(method.commands)};
    for (std::string name; names >> name;) rows.insert(name);
  }
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands)
      if (family.listed) listed.insert(command.name);
  }
  EXPECT_EQ(rows, listed);
}

TEST(BindingTable, KeywordsAreThoseOfCommands) {
  for (const velmor::lexiva::Keywords& row : velmor::lexiva::all_keywords())
    EXPECT_NE(velmor::lexiva::find(row.command), nullptr) << row.command;
}

TEST(BindingTable, HasARowForEveryCommand) {
  std::set<std::string> bound;
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands) {
      EXPECT_TRUE(bound.insert(command.entry_point).second) << command.name << " stands twice";
    }
  }
  std::ifstream names(VSTRING_EXPORTS);
  for (std::string name; std::getline(names, name);) {
    EXPECT_TRUE(!name.starts_with("vstring_") || bound.contains(name)) << name;
  }
}

}  // namespace
}  // namespace vstring_test
