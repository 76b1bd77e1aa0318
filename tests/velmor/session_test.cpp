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
         {"c := 'a'", "a"},
         {"c", "error: name defined by itself: c"},
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
            "Error, the string is not closed on its line\n  f(\"a;\n    ^\n"
            "Error, unexpected `)'\n  );\n  ^\n1");
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

TEST_F(SessionTest, ComparingAndLogic) {
  check(
      {{"1 == 1.0, \"a\" == `a`, [1, {x}] == [1, {x}], NULL <> NULL", "true, false, true, false"},
       {"\"a\" < \"ab\", \"b\" >= \"ab\", -2 <= -2.0, 2 > 10", "true, true, true, false"},
       {"100000000000000000000 > 99999999999999999999, -100000000000000000000 < 5", "true, true"},
       {"not 1 == 2 and (true or nothing)", "true"},
       {"1 < \"a\"", "error: expecting two numbers or two strings around `<', but got 1 and \"a\""},
       {"true and x", "error: expecting true or false beside `and', but got x"}});
}

TEST_F(SessionTest, Indexing) {
  check({{"s := \"hello\", 7", "\"hello\", 7"},
         {"s[1][2 .. -2], s[-1], 7[1], {1, 2}[2 .. 1], s[2 .. 2]", "\"ell\", 7, 7, {}, 7"},
         {"[4, 5, 6][-2 .. -1], \"abc\"[4 .. 3], \"\"[1 .. 0]", "[5, 6], \"\", \"\""},
         {"s[0]", "error: index 0 is outside of 1 .. 2"},
         {"[1][2]", "error: index 2 is outside of 1 .. 1"},
         {"[1][9223372036854775808]", "error: index 9223372036854775808 is outside of 1 .. 1"},
         {"\"abc\"[3 .. 1]", "error: index 3 .. 1 runs backwards"},
         {"\"abc\"[x]", "error: an index must be an integer or a range, not x"}});
}

TEST_F(SessionTest, Procedures) {
  check({{"f := x  -> reverse( x)  # twice", "x -> reverse( x)"},
         {"apply(f, [\"ab\", \"cd\"]), apply(reverse, (\"ab\", \"cd\")), apply(f)",
          "[\"ba\", \"dc\"], [\"ba\", \"dc\"], []"},
         {"g := a -> b -> apply(c -> a + 2*b + c, [b, 0])",
          "a -> b -> apply(c -> a + 2*b + c, [b, 0])"},
         {"h := g(10)", "b -> apply(c -> a + 2*b + c, [b, 0])"},
         {"h(1), h(2)", "[13, 12], [16, 14]"},
         {"(k, x) -> k(x)", "(k, x) -> k(x)"},
         {"apply(k -> k(\"abc\"), [length, f, y -> y[1], take])",
          "error: expecting 2 arguments, but got 1"},
         {"apply(k -> k(\"abc\"), [length, f, y -> y[1]])", "[3, \"cba\", \"a\"]"},
         {"f(1, 2)", "error: x -> reverse( x) expects 1 argument, but got 2"},
         {"x -> `x`, 'x -> x'", "x -> `x`, x -> x"},
         {"r := n -> r(n)", "n -> r(n)"},
         {"r(1)", "error: procedures call each other too deeply"},
         {"size([1, 2]), size(1, 2), size(NULL), size(\"abc\")", "2, 2, 0, 1"},
         {"length(readfile(\"/etc/passwd\")) > 0", "true"},
         {"readfile(\"/\")", "error: cannot read /: Is a directory"}});
}

TEST_F(SessionTest, LoopsAndTables) {
  EXPECT_EQ(run(session_,
                "for w in [\"ab\", \"c\"] do reverse(w); n := w: for i in 1, 2 do i end:; end; n;"
                "for x in 5 do x end; for x in NULL do x end; for take in 1 do 2 end;"
                "for x in 1, 2 do x; f(x) end"),
            "\"ba\"\n\"c\"\n\"c\"\n5\n---\n"
            "Error, cannot assign to take, which is a command\nError, no command f\n2");
  EXPECT_EQ(run(session_, "table([x -> x, reverse, length], [\"ab\", \"\\303\\251\"]); table(1)"),
            "ab        ba        2\n\\303\\251  \\251\\303  2\n---\n"
            "Error, (in table) expecting a list of procedures and a list\n1");
}

// A command that asks the host to evaluate must get procedures too, and be left in good order when
// they fail.
TEST_F(SessionTest, CommandsCallProcedures) {
  Session session([](const std::string& entry_point) -> VelmorCommand {
    if (entry_point != "vstring_take") return resolve(entry_point);
    return [](const HostTable* host, HostObject args) {
      const auto* const words = reinterpret_cast<const HostObject*>(args);
      return host->HostEvalProc(words[1], 1, host->HostQuote(words[2]));
    };
  });
  const auto answer = [&](const std::string& call) { return session.evaluate(call).text; };
  EXPECT_EQ(answer("[take(reverse, \"ab\"), take(x -> cap(1), 2), 3]"), "error: no command cap");
  EXPECT_EQ(answer("n := [1, take(x -> take(y -> [x, y], 5), 2), take(size, 7)]"),
            "[1, [2, 5], 1]");
  EXPECT_EQ(answer("take(length, 1)"), "error: first argument must be a string");
  std::ostringstream out, err;
  session.run("[0, take(x -> length(x), 1)]; f := x -> take(f, x); f(1); n[2]", out, err);
  EXPECT_EQ(err.str(),
            "Error, (in length) first argument must be a string\n"
            "Error, procedures call each other too deeply\n");
  EXPECT_EQ(out.str(), "f := x -> take(f, x)\n[2, 5]\n");
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
