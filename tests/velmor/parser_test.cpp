#include "language/parser.h"

#include <gtest/gtest.h>

#include <string>

#include "language/failure.h"
#include "language/statements.h"
#include "words/sample_words.h"

namespace velmor {
namespace {

// The tree in prefix form, such as "(add 1 (call f x))".
std::string shown(const Node& tree) {
  static constexpr const char* kKinds[] = {
      "",  "",    "",  "", "call ", "seq", "list", "set",   "..", "=",   "+",   "-",
      "*", "neg", "'", "", "and",   "or",  "not",  "index", "->", ":= ", "for "};
  const auto kind = static_cast<std::size_t>(tree.kind);
  if (tree.kind == NodeKind::kString) return '"' + tree.text + '"';
  if (tree.kind <= NodeKind::kName) return tree.text;
  std::string text = std::string("(") + kKinds[kind];
  if (tree.kind == NodeKind::kCall || tree.kind == NodeKind::kCompare ||
      tree.kind >= NodeKind::kAssign)
    text += tree.text;
  for (const auto& part : tree.parts) text += ' ' + shown(*part);
  return text + ')';
}

std::string parsed(const std::string& source) {
  try {
    return shown(*parse_statement(source));
  } catch (const SyntaxError& error) {
    return std::to_string(error.line()) + ": " + error.what();
  }
}

struct Case {
  std::string source, expected;
};

void check(const std::vector<Case>& cases) {
  for (const Case& c : cases) EXPECT_EQ(parsed(c.source), c.expected) << c.source;
}

TEST(Parser, Expressions) {
  check({{"f(x, \"a\", 1)", "(call f x \"a\" 1)"},
         {"`a name`(1)", "(call a name 1)"},
         {"1, 2, (3, 4)", "(seq 1 2 (seq 3 4))"},
         {"()", "(seq)"},
         {"[], {}, [1]", "(seq (list) (set) (list 1))"},
         {"x = 1 .. n", "(= x (.. 1 n))"},
         {"1-2-3*4", "(- (- 1 2) (* 3 4))"},
         {"-1 + -x", "(+ -1 (neg x))"},
         {"--7", "7"},
         {"1.5e-3, .5, 2., 3e2, 4e", "1: unexpected `e'"},
         {"'f(x)', ''y''", "(seq (' (call f x)) (' (' y)))"},
         {"x := 1, 2;", "(:= x (seq 1 2))"},
         {"'x' := 'x':", "(:= x (' x))"},
         {"not a and b or c == 1 .. 2", "(or (and (not a) b) (== c (.. 1 2)))"},
         {"x = 1 < -2[3]", "(= x (< 1 (neg (index 2 3))))"},
         {"f(x)[1][2 .. 3]", "(index (index (call f x) 1) (.. 2 3))"},
         {"f := x -> (y, z) -> x = y, 1", "(:= f (seq (-> x (-> y z (= x y))) 1))"},
         {"() -> `end`", "(-> end)"},
         {"for x in 1, 2 do x:; y := x for", "1: unexpected `for', a reserved word"},
         {"for x in 1, 2 do x:; y := 3 end;", "(for x (seq 1 2) x (:= y 3))"},
         {"# nothing\n x # name\n", "x"}});
}

TEST(Parser, EscapesReadBackWhatPrints) {
  check({{R"("\a\b\e\f\n\r\t\v\\\"\'\`\?")", "\"\a\b\033\f\n\r\t\v\\\"'`?\""},
         {R"("\101\x41\x4g\7z\1234")",
          "\"AA\x04g\az\123"
          "4\""},
         {R"("\377\xff")", "\"\xff\xff\""},
         {R"(`a \` b`)", "a ` b"},
         {R"("\\?\\[")", R"("\?\[")"}});
}

TEST(Parser, Refusals) {
  const std::string unknown = "unknown escape in a string; a backslash itself is written \\\\";
  check({{"", "1: unexpected end of the statement"},
         {"f(", "1: unexpected end of the statement"},
         {"f(,)", "1: unexpected `,'"},
         {"1 < 2 < 3", "1: unexpected `<'"},
         {"f(x) -> 1", "1: only names can stand to the left of `->'"},
         {"for 1 in 2 do end", "1: unexpected `1'"},
         {"x \xe2\x80\x9cy", "1: unexpected character `\xe2\x80\x9c'"},
         {"x \x80", "1: unexpected character `\\200'"},
         {"\n1 2", "2: unexpected `2'"},
         {"x\n+\n?", "3: unexpected character `?'"},
         {"\"abc\n\"", "1: the string is not closed on its line"},
         {"`abc", "1: the quoted name is not closed on its line"},
         {"\"abc\\", "1: " + unknown},
         {R"("\d")", "1: " + unknown},
         {R"("\400")", "1: " + unknown},
         {R"("\x")", "1: " + unknown},
         {R"("a\0b")", "1: a string cannot hold a zero byte"},
         {"f(x) := 1", "1: only a name can stand to the left of `:='"},
         {"f(x := 1)", "1: unexpected `:='"}});
}

// Trees of any shape are bounded, so that nobody who walks one overruns the stack.
TEST(Parser, DepthIsBounded) {
  const auto repeated = [](const std::string& text, std::size_t n) {
    return vstring_test::periodic_word(text, n * text.size());
  };
  for (const char* opening : {"(", "[", "{", "'[", "f(", "-", "f(1 + [", "a = (", "x -> ", "not ",
                              "x[", "for x in 1 do "})
    EXPECT_EQ(parsed(repeated(opening, 100'000)), "1: nested too deeply") << opening;
  for (const std::string op : {"+1", "-1", "*1", " and 1", " or 1", "[1]"})
    EXPECT_EQ(parsed("x" + repeated(op, 100'000)), "1: nested too deeply") << op;
  EXPECT_EQ(parsed(repeated("(", 400) + "1" + repeated(")", 400)), "1");
  EXPECT_EQ(parse_statement("1" + repeated(",1", 100'000))->parts.size(), 100'001U);
}

// Statements as "line text|" for one that prints and "line text!" for one that does not.
std::string split(const std::string& script, std::size_t chunk, EndsOfStatements ends) {
  StatementSplitter splitter(ends);
  std::string result;
  const auto show = [&](const Statement& statement) {
    result += std::to_string(statement.line) + statement.text + (statement.prints ? "|" : "!");
  };
  for (std::size_t i = 0; i < script.size(); i += chunk) {
    splitter.feed(script.substr(i, chunk));
    while (const auto statement = splitter.next()) show(*statement);
  }
  if (const auto statement = splitter.rest()) show(*statement);
  return result;
}

TEST(StatementSplitter, CutsTheSameHoweverTheTextArrives) {
  const std::vector<Case> scripts = {
      {"a;b:c", "1a;|1b:!1c|"},
      {"x:=1:y:=2", "1x:=1:!1y:=2|"},
      {" ;; # no; statement\n :\n", ""},
      {"f(\";\", `:`);\ng", "1f(\";\", `:`);|1\ng|"},
      {"\"\\\";\"; `\\`;`;", "1\"\\\";\";|1 `\\`;`;|"},
      {"# a \"quote\n1;\n\n2;", "1# a \"quote\n1;|2\n\n2;|"},
      {"\"open\\\n1; 2;", "1\"open\\\n|21;|2 2;|"},
      {"for x in y do 1; redo; end_:\nfor z in x do 2 end end: 3",
       "1for x in y do 1; redo; end_:\nfor z in x do 2 end end:!2 3|"},
      {"f(`a\n1; do; end; end;", "1f(`a\n|21;|2 do; end;|2 end;|"},
  };
  const std::vector<Case> lines = {
      {"a b\nf(1, [\n2])\n\n# c\n1; 2:\n3", "1a b\n|2f(1, [\n2])\n|4\n# c\n1;|6 2:!6\n3|"},
      {"for x in y do\n1;\nend\n(]\n4", "1for x in y do\n1;\nend\n|4(]\n|54|"},
  };
  const auto check_all = [](const std::vector<Case>& cases, EndsOfStatements ends) {
    for (const Case& c : cases)
      for (std::size_t chunk = 1; chunk <= c.source.size(); ++chunk)
        EXPECT_EQ(split(c.source, chunk, ends), c.expected) << c.source << " by " << chunk;
  };
  check_all(scripts, EndsOfStatements::kTerminators);
  check_all(lines, EndsOfStatements::kLines);
}

}  // namespace
}  // namespace velmor
