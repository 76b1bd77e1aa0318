#include "language/session.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <vector>

#include "host/vstring.h"
#include "language/checker.h"

namespace velmor {
namespace {

VelmorCommand resolve(const std::string& entry_point) {
  static const std::map<std::string, VelmorCommand> kCommands = {
      {"vstring_reverse", vstring_reverse},
      {"vstring_take", vstring_take},
      {"vstring_length", vstring_length}};
  const auto found = kCommands.find(entry_point);
  return found == kCommands.end() ? nullptr : found->second;
}

class SessionTest : public testing::Test {
 protected:
  SessionTest() : session_(resolve) {}

  std::string evaluated(const std::string& expression) {
    return session_.evaluate(expression).text;
  }

  struct Case {
    std::string expression, expected;
  };
  void check(const std::vector<Case>& cases) {
    for (const Case& c : cases) EXPECT_EQ(evaluated(c.expression), c.expected) << c.expression;
  }

  // Output, then errors, then the result.
  static std::string run(Session& session, const std::string& script) {
    std::ostringstream out, err;
    const Verdict verdict = session.run(script, out, err);
    return out.str() + "---\n" + err.str() + std::to_string(static_cast<int>(verdict));
  }

  Session session_;
};

TEST_F(SessionTest, ValuesReadBackAsTheyPrint) {
  session_.symbolic = true;
  for (const std::string text :
       {"\"a\\n\\t\\\\\\\"\\001\\377\"", "`a name`", "x", "-1", "123456789012345678901234567890",
        "-9223372036854775808", "1.5", "1e+300", "[1, [], {2, x}]", "1 .. x", "x = 1 .. 2",
        "f(x, \"y\", g())", "1, 2", "(1 .. 2) .. 3", "(a = b) = c", "true", ""})
    EXPECT_EQ(evaluated(text.empty() ? "NULL" : text), text);
}

TEST_F(SessionTest, SequencesFlatten) {
  session_.symbolic = true;
  check({{"s := 1, (2, NULL, 3)", "1, 2, 3"},
         {"[s, s]", "[1, 2, 3, 1, 2, 3]"},
         {"{s, 2}", "{1, 2, 3}"},
         {"f(s, (), 4)", "f(1, 2, 3, 4)"},
         {"(\"a\", NULL)", "\"a\""},
         {"take(\"abc\", (1, 2))", "\"a\""},
         {"t := \"abc\", 2", "\"abc\", 2"},
         {"take(t)", "\"ab\""},
         {"1 .. s", "error: expecting one value on each side of `..'"},
         {"NULL = 1", "error: expecting one value on each side of `='"}});
}

TEST_F(SessionTest, NamesAndQuotes) {
  session_.symbolic = true;
  check({{"y", "y"},
         {"x := y", "y"},
         {"y := \"abc\"", "\"abc\""},
         {"x, 'x', ''x''", "\"abc\", x, x"},
         {"reverse(x)", "\"cba\""},
         {"'reverse(x)'", "reverse(x)"},
         {"f := 'reverse'", "reverse"},
         {"f(x)", "\"cba\""},
         {"unknown(x, 'x')", "unknown(\"abc\", x)"},
         {"y := 'y'", "y"},
         {"x", "y"},
         {"a := 'b'", "b"},
         {"b := 'a'", "a"},
         {"a", "error: name defined by itself: a"},
         {"n := 5", "5"},
         {"n(1)", "error: n is not a function but 5"},
         {"take := 1", "error: cannot assign to take"}});
}

TEST_F(SessionTest, Arithmetic) {
  check({{"1 + 2*3 - -4", "11"},
         {"-9223372036854775807 - 1", "-9223372036854775808"},
         {"4611686018427387904 * 2", "error: integer too large for arithmetic"},
         {"\"a\" + 1", "error: expecting integers around `+'"},
         {"-x", "error: expecting integers around `-'"}});
}

TEST_F(SessionTest, Scripts) {
  EXPECT_EQ(run(session_,
                "with( Lexiva );  # harmless\n"
                "x := reverse(\"ab\"), 1;\ny := 2: y;\nNULL; x"),
            "x := \"ba\", 1\n2\n\"ba\", 1\n---\n0");
  EXPECT_EQ(run(session_, "1;\n 2 3;\nf(\"a;\n);4;"),
            "1\n4\n---\nError, unexpected `3'\n   2 3;\n     ^\n"
            "Error, the string is not closed on its line\n  f(\"a;\n    ^\n1");
  EXPECT_EQ(run(session_, "with(Other); with()"),
            "---\nError, (in with) no such package: Other\n"
            "Error, (in with) expecting the name of a package\n1");
}

TEST_F(SessionTest, UnknownCommands) {
  EXPECT_EQ(run(session_, "revrse(\"ab\"); x := 1, Takee(\"a\", 1); x; 'zzz(1)'; zzz()"),
            "x\nzzz(1)\n---\nError, no command revrse; did you mean reverse?\n"
            "Error, no command Takee; did you mean take?\nError, no command zzz\n2");
  session_.symbolic = true;
  EXPECT_EQ(run(session_, "revrse(\"ab\")"), "revrse(\"ab\")\n---\n0");
}

TEST_F(SessionTest, ProgramsAreCheckedBeforeTheyRun) {
  const auto checked = [&](const std::vector<Source>& sources) {
    std::ostringstream err;
    const Verdict verdict = velmor::check(session_, sources, err);
    return err.str() + std::to_string(static_cast<int>(verdict));
  };
  EXPECT_EQ(checked({{"f := 'reverse'; f(\"a\"); 'g(1)'; x"}, {"f(\"b\")"}}), "0");
  EXPECT_EQ(checked({{"1;\n[take(\"a\", 1),\n tkae(1)];", "a"}, {"take := 1: 1 +", "b"}}),
            "Error, unexpected end of the statement (b, line 1)\n   1 +\n      ^\n"
            "Error, no command tkae; did you mean take? (a, line 3)\n"
            "Error, cannot assign to take, which is a command (b, line 1)\n2");
}

TEST_F(SessionTest, TryComparesValues) {
  EXPECT_EQ(run(session_,
                "#test\n\twith( Lexiva );\n\n\tTRY( 1, length( \"\\\\?\" ), 2 );\n"
                "TRY(2, (reverse(\"ab\"), 1), (\"ba\", 1));TRY(3, NULL, NULL);\n#end test\n"),
            "---\n0");
  EXPECT_EQ(run(session_, "TRY(7, reverse(\"ab\"), `ba`); TRY(1, 2)"),
            "---\nError, (in TRY) test 7 failed: expected ba, got \"ba\"\n"
            "Error, (in TRY) expecting a number, a call and its expected value\n1");
}

TEST_F(SessionTest, TheDriverSeesEveryCall) {
  std::string seen;
  session_.before_call = [&](const std::string& command, HostObject argseq) {
    seen += command + "(" + session_.print(argseq) + ") ";
  };
  session_.after_call = [&](const std::string& command, HostObject) {
    seen += "/" + command + " ";
  };
  evaluated("[take(reverse(\"abc\"), 9), take(1)]");
  EXPECT_EQ(seen, "reverse(\"abc\") /reverse take(\"cba\", 9) /take take(1) /take ");
}

TEST_F(SessionTest, ValuesLiveAsLongAsTheyAreNeeded) {
  const Expression constant = session_.prepare("reverse(\"constant\"), [\"list\"]");
  evaluated("kept := reverse(\"tpek\")");
  const Outcome last = session_.evaluate("reverse(\"tsal\")");
  velmor_collect(session_.heap());
  EXPECT_EQ(session_.print(last.value), "\"last\"");
  EXPECT_EQ(session_.print(session_.value_of(constant)), "\"tnatsnoc\", [\"list\"]");
  EXPECT_EQ(evaluated("kept"), "\"kept\"");
}

TEST_F(SessionTest, GarbageStaysBounded) {
  const Expression expression = session_.prepare("reverse(reverse(\"some text\"))");
  for (int i = 0; i < 200'000; ++i) {
    session_.collect_garbage();
    session_.value_of(expression);
  }
  EXPECT_LT(velmor_object_count(session_.heap()), 50'000U);
}

}  // namespace
}  // namespace velmor
