// Results around the limit of the scratch buffer, which holds 8189 bytes and a terminator or a
// little more, as each command has it: one byte above the limit goes to the heap, and nobody sees
// it.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/check.h"

namespace vstring_test {
namespace {

// Here x is a text of n bytes.
const std::pair<const char*, const char*> kSame[] = {
    {"reverse(cap(take(x, n - 1), \"\", \"y\"))", "cap(take(x, n - 1), \"y\", \"\")"},
    {"insert(take(x, n - 1), 0, \"x\")", "x"},
    {"take(cap(x, \"\", \"y\"), n)", "x"},
    {"drop(cap(x, \"y\", \"\"), 1)", "x"},
    {"rotate(cap(take(x, n - 1), \"\", \"y\"), 1)", "cap(take(x, n - 1), \"y\", \"\")"},
    {"exchange(cap(take(x, n - 1), \"y\", \"\"), 1, n)", "cap(take(x, n - 1), \"\", \"y\")"},
    {"shift(x, 1)", "repeat(\"y\", n)"},
    {"uppercase(x)", "repeat(\"X\", n)"},
    {"lowercase(repeat(\"X\", n), 1 .. -1)", "x"},
    {"capitalise(x)", "cap(take(x, n - 1), \"X\", \"\")"},
    {"tr(\"x\", \"y\", x)", "repeat(\"y\", n)"},
    {"sort(cap(take(x, n - 1), \"y\", \"\"))", "cap(take(x, n - 1), \"\", \"y\")"},
    {"join([x, \"\"], \"\")", "x"},
    {"implode(explode(x))", "x"},
    {"casejoin([\"\", x])", "cap(take(x, n - 1), \"X\", \"\")"},
    {"[casesplit(\"x\"), casesplit(x)]", "[\"x\", x]"},
    {"split(cap(\",,\", x, x), \",\")", "[x, \"\", x]"},
    {"fmtmsg(\"%1\", x), fmtmsg(x), fmtmsg(\"%%1|%1\", x)", "x, x, cap(x, \"%%1|\", \"\")"},
    {"fill(\"x\", n)", "x"},
    {"fmttime(x), fmttime(cap(\"%Y\", take(x, n - 4), \"\"), timestamp = 86400)",
     "x, cap(\"1970\", take(x, n - 4), \"\")"},
    {"subst(x, \"x\", \"y\"), substx(x, \"x\", \"y\")",
     "cap(take(x, n - 1), \"y\", \"\"), repeat(\"y\", n)"},
    {"regsub(\"x*\", x, \"&\"), regsub(\"x\", x, x)", "x, x"},
    {"regsubs(\"y\" = \"\", cap(x, \"y\", \"y\")), regsubs(\"x\" = \"y\", x)",
     "x, repeat(\"y\", n)"},
    {"minconj(cap(take(x, n - 1), \"x\", \"\"))", "x"},
    {"snarf(cap(x, \"\", \"1\"), \"x\"), substr(cap(x, \"\", \"1\"), 1 .. n)", "x, x"},
};

TEST(Scratch, ItsLimitDoesNotShow) {
  for (const std::size_t n : {8188U, 8189U, 8190U, 8191U, 8192U, 16383U, 16384U, 50000U}) {
    evaluate("n := " + std::to_string(n));
    evaluate("x := repeat(\"x\", n)");
    for (const auto& [call, expected] : kSame) {
      EXPECT_EQ(evaluate(expected), evaluate(call)) << call << ", " << n;
    }
  }
  evaluate("n := 'n'");
  evaluate("x := 'x'");
}

// The same with failures.
TEST(Scratch, OnTheHeapToo) {
  for (const std::string n : {"8189", "8190", "8192"}) {
    Check({{"length(reverse(repeat(\"x\", " + n + ")))", n},
           {"length(fmtmsg(\"%1\", repeat(\"x\", " + n + ")))", n},
           {"length(fmttime(repeat(\"x\", " + n + ")))", n},
           {"length(casejoin([repeat(\"x\", " + n + ")]))", n},
           {"length(regsub(\"x*\", repeat(\"x\", " + n + "), \"&\"))", n},
           {"length(substx(repeat(\"x\", " + n + "), \"y\", \"\"))", n}});
  }
}

}  // namespace
}  // namespace vstring_test
