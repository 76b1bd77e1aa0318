// Wrapping, filling, ends, tabs, margins and lines of texts, and placeholder text.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/check.h"
#include "text/wrap_reference.h"

namespace vstring_test {
namespace {

void expect_as_model(const std::string& text, unsigned width, unsigned option_set) {
  const WrapOptions options = {(option_set & 1) != 0, (option_set & 2) != 0, (option_set & 4) != 0,
                               (option_set & 8) != 0};
  std::string call = "wrap(" + quoted(text) + ", " + std::to_string(width);
  for (const char* const name : {"countbytes", "expandtabs", "obeylines", "obeyspaces"}) {
    call += std::string(", ") + name + ((option_set & 1) != 0 ? " = true" : " = false");
    option_set /= 2;
  }
  call += ")";
  const std::string expected = text.size() <= width ? text : wrapped(text, width, options);
  ASSERT_EQ(quoted(expected), evaluate(call)) << call;
}

TEST(Wrap, RandomTextsAgreeWithTheRules) {
  std::mt19937 random(1);
  const std::string alphabet = "aaaaabcd    \t\n\b\v\xff";
  for (unsigned width = 1; width <= 80; ++width) {
    for (unsigned option_set = 0; option_set < 16; ++option_set) {
      std::string text(random() % 250, ' ');
      for (char& c : text) c = alphabet[random() % alphabet.size()];
      expect_as_model(text, width, option_set);
    }
  }
}

// Every result size around the limits of the scratch buffer, and texts that grow most.
TEST(Wrap, LongResults) {
  for (unsigned option_set = 0; option_set < 16; ++option_set) {
    for (const char* piece : {"a ", "a\t", "\t", "ab cd\n"}) {
      std::string text;
      while (text.size() < 1020) text += piece;
      for (int i = 0; i < 5; ++i) expect_as_model(text += 'x', 1, option_set);
      while (text.size() < 8180) text += text;
      expect_as_model(text, 3, option_set);
    }
    for (unsigned n = 8186; n <= 8194; ++n) {
      expect_as_model(std::string(20, 'a') + " " + std::string(n - 21, 'b'), 20, option_set);
    }
  }
}

TEST(Wrap, ValuesAndRefusals) {
  Check({
      {R"(wrap("aaa bbb ccc", 7), wrap(`aaa bbb`, 7), wrap(`aaa bbb`, 3), wrap("a\tb\n"))",
       R"("aaa bbb \nccc", `aaa bbb`, "aaa \nbbb", "a\tb\n")"},
      {R"(wrap("a b c", 1, obeylines = true, obeylines = false))", R"("a \nb \nc")"},
      {R"(wrap("a b", 1, unknown = 7, obeylines))", R"("a \nb")"},
      {"wrap()", "error: at least one argument expected"},
      {"wrap(7, 0, obeyspaces = 1, countbytes = FAIL)",
       "error: the `countbytes' value must be either `true' or `false', but received FAIL"},
      {"wrap(7, 0, expandtabs = \"true\")",
       "error: the `expandtabs' value must be either `true' or `false', but received \"true\""},
      {"wrap(7, 0, obeylines = 0, obeyspaces = true)",
       "error: the `obeylines' value must be either `true' or `false', but received 0"},
      {"wrap(7, 0, obeyspaces = yes)",
       "error: the `obeyspaces' value must be either `true' or `false', but received yes"},
  });
}

TEST(Ends, ValuesAndRefusals) {
  Check({
      {R"(pad("ab", 5), pad("7", 3, left, "0"), pad("ab", 5, "both", "*"), pad("", 2))",
       R"("ab   ", "007", "*ab**", "  ")"},
      {R"(length(pad("a", 20000, both)), pad(a, 2, right, x), pad("a", 4, both, "\377"))",
       R"(20000, "ax", "\377a\377\377")"},
      {R"(trim("  hi \n"), trim("xxhixx", "x", left), trim("xyhiyx", "xy"), trim(" \t "))",
       R"("hi", "hixx", "hi", "")"},
      {R"(trim("\240a"), trim(`xax`, "x", right), trim("abba", "ab", both), trim("a-b", "a-b"))",
       R"("\240a", "xa", "", "")"},
      {R"(pad("a", 3, centre))", "error: unrecognised side `centre'"},
      {R"(trim("a", "b", "Left"))", "error: unrecognised side `\"Left\"'"},
      {R"(pad("a", 3, left, 5))", "error: fourth argument must be a string"},
      {R"(pad("a", 2147483647))", "error: result would be too long"},
  });
  CheckRefusals({
      {"fourth argument must be a single byte",
       R"(pad("a", 3, left, "ab"); pad("a", 0, left, ""))"},
      {"second argument must be non-negative", R"(pad("a", -1, centre); indent("a", -1))"},
  });
}

TEST(Tabs, ValuesAndRefusals) {
  Check({
      {R"(expand("a\tb"), expand("ab\tc\n\td", 4), expand("\b\tx", 4), expand("abcd\r\t", 4))",
       R"("a       b", "ab  c\n    d", "\b   x", "abcd\r    ")"},
      {R"(expand("\t\ta\t", 1), expand(`\t`, 3), length(expand(repeat("a\t", 3000))))",
       R"("  a ", "   ", 24000)"},
      {R"(unexpand("         x  y"), unexpand("  \tx\n    y", 4), unexpand("a        b"))",
       R"("\t x  y", "\tx\n\ty", "a        b")"},
      {R"(unexpand("  \r   ", 2), unexpand(` x`, 1), unexpand("\n  \t  x", 3))",
       R"("\t\r\t ", "\tx", "\n\t  x")"},
      {R"(expand("\t", 1073741825))", "error: result would be too long"},
      {R"(expand("\t\t", 536870913))", "error: result would be too long"},
  });
  CheckRefusals({{"second argument must be positive", R"(expand("\t", 0); unexpand("a", -1))"}});
}

TEST(Margins, ValuesAndRefusals) {
  Check({
      {R"(indent("a\n\nb\n", 2), indent("a\n b", "> "), indent("\v\na\n \r\n", x))",
       R"("  a\n\n  b\n", "> a\n>  b", "\v\nxa\n \r\n")"},
      {R"(dedent("  a\n    b\n \n  c"), dedent("\ta\n  b"), dedent(" a\n"), dedent("   "))",
       R"("a\n  b\n\nc", "\ta\n  b", "a\n", "")"},
      {R"(dedent(" \tx\n \t\ty\n\t\v"), dedent("\va\n \vb"), dedent(` a`))",
       R"("x\n\ty\n\v", "\va\n \vb", "a")"},
      {R"(length(indent(repeat("a\n", 500), 300)), indent("\n", 2147483647))", R"(151000, "\n")"},
      {R"(indent("a", 1073741824))", "error: result would be too long"},
  });
  CheckRefusals({{"second argument must be an integer or a string",
                  R"(indent("a", 2.5); indent("a", 2147483648); indent("a", ["a"]))"}});
}

TEST(Layout, WhatDoesNotChangeIsTheArgument) {
  CheckIdentity({
      {"a",
       "pad(x, 1); pad(x, 0, left, b); trim(x); trim(x, \"\", left); trim(x, b, right); "
       "expand(x); unexpand(x); indent(x, \"\"); indent(x, 0); dedent(x)",
       "", "pad(x, 2); trim(x, x); indent(x, 1)"},
      {" a\n\tb", "trim(x, \"a\"); unexpand(x); indent(x, 0); dedent(x)", "",
       "trim(x, x); trim(x, ` `); expand(x); unexpand(x, 1); indent(x, b)"},
      {"", "pad(x, 0); trim(x); expand(x, 3); unexpand(x); indent(x, a); dedent(x)", "",
       "pad(x, 1)"},
  });
}

TEST(Lines, EndAtNewlines) {
  Check({{R"(lines("a\nb"), lines("a\r\n\n"), lines(""), lines("\n"), lines("a\rb\r"))",
          R"(["a", "b"], ["a", ""], [], [""], ["a\rb\r"])"},
         {R"(lines("\r\r\nb\n\r"), lines(`x`))", R"(["\r", "b", "\r"], ["x"])"}});
}

TEST(Fill, ValuesAndRefusals) {
  Check({
      {R"(fill("ab", 3), fill(`\377`, 2), fill("a", 0), length(fill("a", 8189)))",
       R"("aaa", "\377\377", "", 8189)"},
      {R"(length(fill("a", 8190)), numboccur(fill("a", 100000), "a"))", "8190, 100000"},
      {"fill(\"\", 0)", "error: the first argument may not be the empty string"},
  });
}

TEST(Ipsum, ParagraphsCharactersAndRefusals) {
  const std::string refusal =
      "optional argument must be an equation of the form `paragraphs = N', `words = N' or "
      "`characters = N', with N an integer";
  Check({
      {"length(ipsum()), substr(ipsum(), 1 .. 26)", R"(544, "Lorem ipsum dolor sit amet")"},
      {"substr(ipsum(), -20 .. -1), ipsum(paragraphs = 0)", R"("ait nulla facilisi. ", "")"},
      {"length(ipsum(paragraphs = 1)), length(ipsum(paragraphs = 2, 7))", "544, 1091"},
      {"substr(ipsum(paragraphs = 2), 543 .. 551), substr(ipsum(paragraphs = 2), -3 .. -1)",
       R"(". \n\nLorem", ". \n")"},
      {"length(ipsum(paragraphs = 15)), length(ipsum(paragraphs = 16))", "8189, 8735"},
      {"ipsum(characters = 5), length(ipsum(characters = 543))", R"("Lorem", 543)"},
      {"length(ipsum(characters = 8192)), ipsum(words = 3)", R"(544, "")"},
      {"ipsum(words = -1)", "error: number of words must be non-negative"},
      {"ipsum(`paragraphs` = -1)", "error: number of paragraphs must be non-negative"},
  });
  CheckRefusals(
      {{refusal, R"(ipsum("paragraphs" = 1); ipsum(lines = 1); ipsum(paragraphs = 2147483648); )"
                 "ipsum(paragraphs); ipsum(3)"}});
}

}  // namespace
}  // namespace vstring_test
