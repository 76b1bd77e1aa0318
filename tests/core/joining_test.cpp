// Joining and splitting.
#include <gtest/gtest.h>

#include "support/check.h"

namespace vstring_test {
namespace {

TEST(Joining, JoinAndImplode) {
  Check({
      {R"(join(["a", "b", "c"]), join(["a", `b`, ""], sep, 7), join(["a", "b"], ""))",
       R"("a b c", "asepbsep", "ab")"},
      {"join([]), join([x]), join([7]), join([[]], 7)", R"("", x, 7, [])"},
      {R"(implode(["abc", "", `de`]), implode([]), implode(["", ""]), implode(["\351x"]))",
       R"("ad", "", "", "\351")"},
  });
}

TEST(Joining, ExplodeAndSplit) {
  Check({
      {R"(explode("hello", 2 .. 3), explode(`a\351`), explode("ab", 3 .. 2))",
       R"(["e", "l"], ["a", "\351"], [])"},
      {R"(explode(""), explode("", 7), explode("abc", -2 .. 99))", R"([], [], ["b", "c"])"},
      {R"(split("a  b"), split(" a"), split("a\t"), split(""))",
       R"(["a", "", "b"], ["", "a"], ["a", ""], [""])"},
      {R"(split("a\nb\fc\rd\ve"))", R"(["a", "b", "c", "d\ve"])"},
      {R"(split("a,b;c", ",;"), split(`a b`, ""), split(",", ","), split("a\351b", "\351"))",
       R"(["a", "b", "c"], ["a b"], ["", ""], ["a", "b"])"},
  });
}

TEST(Joining, MixedCase) {
  Check({
      {R"(casejoin(["hello", "world"]), casejoin(["a1", "Bc", "", `x`]), casejoin([]))",
       R"("HelloWorld", "A1BcX", "")"},
      {R"(casejoin(["abc"]), casejoin(["\351a", "1a"]), casesplit("helloWorldFoo"))",
       R"("Abc", "\351a1a", "hello", "World", "Foo")"},
      {R"([casesplit("ABC")], [casesplit("Hello")], [casesplit("")], [casesplit(`aB`)])",
       R"(["A", "B", "C"], ["Hello"], [""], ["a", "B"])"},
      {R"([casesplit("a\311B\351")])", R"(["a\311", "B\351"])"},
  });
}

// A single element is joined to itself, and capitals go to a copy.
TEST(Joining, ElementsStayAsTheyAre) {
  CheckIdentity({{"hello", "join([x])", "", "casejoin([x]); join([x, \"\"], \"\")"}});
  Check({{"casejoin(explode(\"hi\"))", "\"HI\""}});
}

}  // namespace
}  // namespace vstring_test
