// Procedures over the letters of strings.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

TEST(Procedures, Values) {
  Check({
      {R"(map(ord, ""), map(c -> cap(c, "<", ">"), ab, 7))", R"("", "<a><b>")"},
      {R"(map(escape, "a\tb"))", R"("a\\tb")"},
      {R"(filter(isalpha, ""), filter(c -> isvowel(c), banana), reject(isvowel, "banana"))",
       R"("", "aaa", "bnn")"},
      {R"(foldl(insert, "x", ""), foldr(overlap, 7, ""), foldl(compare, "a", "b"))",
       R"("x", 7, true)"},
      {R"(foldl(issuffix, "b", "b"), foldl((r, c) -> [r, c], [], "ab"))",
       R"(true, [[[], "a"], "b"])"},
      {R"(foldr((c, r) -> [c, r], x, "ab"))", R"(["a", ["b", x]])"},
      {R"(groupby(lowercase, "aAbB"), groupby(ord, ""), groupby(ord, "aab\377\377"))",
       R"(["aA", "bB"], [], ["aa", "b", "\377\377"])"},
      {R"(tabulate(char, 3), tabulate(char, 0))", R"("\001\002\003", "")"},
      // What waits lies still while others work, and memory for long results comes and goes.
      {R"(map(c -> map(d -> cap(c, d, reverse(c)), "xy"), "ab"))", R"("xaayaaxbbybb")"},
      {R"(length(map(c -> repeat(c, 5000), "abc")), length(filter(c -> true, repeat("ab", 60))))",
       "15000, 120"},
  });
}

TEST(Procedures, AreCommandsNamesOfThemAndProcedures) {
  evaluate("f := reverse");
  evaluate("g := c -> cap(c, c, \"\")");
  evaluate("n := 5");
  Check({
      {"map(f, ab), map('f', ab), map(g, ab), map('g', ab)", R"("ab", "ab", "aabb", "aabb")"},
      // A name that a procedure returns, or that is given, is not evaluated on the way.
      {"foldl((r, c) -> r, 'n', ab), foldr((c, r) -> 'n', x, ab)", "n, n"},
      {"map('n', ab)", "error: 5 is not a function"},
      {"map(nosuch, ab)", "error: procedure must return a string, but returned nosuch(\"a\")"},
  });
  for (const char* const name : {"f", "g", "n"}) evaluate(std::string(name) + " := '" + name + "'");
}

// Whatever is held when a procedure raises, its own call or one within, is let go of.
TEST(Procedures, MayRaise) {
  Check({
      {R"(map(c -> take(c, -1), "abc"))", "error: second argument must be non-negative"},
      {R"(map(c -> take(repeat(c, 9000), 9000 * (98 - ord(c))), "abc"))",
       "error: second argument must be non-negative"},
      {R"(groupby(c -> take(repeat(c, 9000), 9000 * (98 - ord(c))), "aabc"))",
       "error: second argument must be non-negative"},
      {R"(filter(c -> map(d -> take(cap(d, c, c), -1), "xy"), repeat("ab", 50)))",
       "error: second argument must be non-negative"},
      {R"(foldr((c, r) -> take(c, r), -1, "ab"))", "error: second argument must be non-negative"},
  });
}

TEST(Procedures, AreCalledOnceForEachLetterInOrder) {
  std::string calls;
  VelmorHeap* const heap = velmor_heap_new();
  const VelmorEvaluator note = [](void* noted, VelmorHeap* here, HostObject, HostObject argseq,
                                  HostObject* result) {
    char* const arguments = velmor_print(here, argseq);
    *static_cast<std::string*>(noted) += std::string(arguments) + "; ";
    std::free(arguments);
    *result = velmor_name(here, "true");
    return 1;
  };
  velmor_set_evaluator(heap, note, &calls);
  const HostObject f = velmor_name(heap, "f");
  const HostObject text = velmor_string(heap, "abba");
  const auto calls_of = [&](VelmorCommand command, std::vector<HostObject> arguments) {
    calls.clear();
    HostObject result = 0;
    const HostObject argseq = velmor_sequence(heap, arguments.size(), arguments.data());
    return velmor_call(heap, command, argseq, &result) != 0 ? calls : velmor_error(heap);
  };
  const std::string letters = R"("a"; "b"; "b"; "a"; )";
  for (const VelmorCommand command : {vstring_map, vstring_filter, vstring_reject, vstring_groupby})
    EXPECT_EQ(letters, calls_of(command, {f, text}));
  EXPECT_EQ("1; 2; 3; ", calls_of(vstring_tabulate, {f, velmor_integer(heap, 3)}));
  const HostObject ab = velmor_string(heap, "ab");
  EXPECT_EQ(R"(f, "a"; true, "b"; )", calls_of(vstring_foldl, {f, f, ab}));
  EXPECT_EQ(R"("b", f; "a", true; )", calls_of(vstring_foldr, {f, f, ab}));
  velmor_heap_free(heap);
}

TEST(Procedures, Refusals) {
  CheckRefusals({
      {"first argument must be a procedure",
       R"(map("f", 7); filter(7, 7); reject([f], "a"); foldl(1, 2, "a"); foldl({f}, 2, "a"); foldr(f = g, 1, 2); )"
       R"(groupby(1 .. 2, "a"); tabulate(-123456789012345678901234567890, "a"))"},
      {"second argument must be a string",
       R"(map(f, 7); filter(f, [f]); reject(f, 1); groupby(f, 1))"},
      {"third argument must be a string", R"(foldl(f, 1, 2); foldr(f, 1, 2))"},
      {"second argument must be non-negative", "tabulate(f, -1)"},
      {"second argument must be a 32-bit integer", "tabulate(f, 2147483648); tabulate(f, x)"},
      {"expecting 2 arguments, but got 1", "map(f); filter(f); reject(7); groupby(f); tabulate(f)"},
      {"expecting 3 arguments, but got 2", R"(foldl(f, "a"); foldr(1, 2))"},
      {"procedure must return a string, but returned 97", R"(map(ord, "ab"))"},
      {"procedure must return true or false, but returned 97",
       R"(filter(ord, "a"); reject(ord, "a"))"},
      {"procedure must return true or false, but returned FAIL", R"(filter(c -> FAIL, "a"))"},
      {"procedure must return a string or an integer, but returned [\"a\"]",
       R"(groupby(explode, "ab"))"},
      {"procedure must return a string, but returned [\"\\001\"]",
       "tabulate(i -> explode(char(i)), 2)"},
      {"integer argument is too large", "tabulate(char, 300)"},
  });
}

}  // namespace
}  // namespace vstring_test
