// Substrings, editing and iota, as a user calls them.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <cstdint>
#include <string>

#include "support/check.h"

namespace vstring_test {
namespace {

std::string text(std::size_t n, char c = 'x') { return quoted(std::string(n, c)); }

TEST(Editing, Substrings) {
  Check({
      {"length(\"hello\")", "5"},
      {"length(`a name`)", "6"},
      {"length(\"12345678\")", "8"},
      {"substr(\"hello\", 2 .. 3)", "\"el\""},
      {"substr(\"hello\", -3 .. -1)", "\"llo\""},
      {"substr(\"hello\", 4 .. 3)", "\"\""},
      {"substr(\"hello\", 40 .. 39)", "\"\""},
      {"substr(\"hello\", 0 .. -1)", "\"\""},
      {"substr(\"hello\", 3 .. 99)", "\"llo\""},
      {"substr(`hello`, 1 .. -1)", "\"hello\""},
      {"substr(\"\", 7)", "\"\""},
      {"substr(\"hello\", 0 .. 2)", "error: invalid range"},
      {"substr(\"hello\", 3 .. 1)", "error: invalid range"},
      {"substr(\"hello\", -9 .. 2)", "error: invalid range"},
      {"substr(\"hello\", 2)", "error: second argument must be a range"},
      {"substr(\"hello\", \"a\" .. 2)", "error: lower endpoint of range must be a small integer"},
      {"substr(\"hello\", 1 .. 2147483648)",
       "error: upper endpoint of range must be a small integer"},
      {"take(\"abc\", 0)", "\"\""},
      {"take(\"abc\", 5)", "\"abc\""},
      {"take(\"hello world\", \" \")", "\"hello\""},
      {"take(\"hello\", `xyz`)", "\"hello\""},
      {"take(\"abc\", -1)", "error: second argument must be non-negative"},
      {"take(\"abc\", 2147483648)", "error: second argument is too large"},
      {"take(\"abc\", -2147483649)", "error: second argument is too large"},
      {"take(\"abc\", 1.5)", "error: second argument must be a positive integer or a string"},
      {"drop(\"abc\", 0)", "\"abc\""},
      {"drop(\"abc\", 3)", "\"\""},
      {"drop(\"abc\", 4)", "\"\""},
      {"drop(\"a/b/c\", \"/\")", "\"c\""},
      {"drop(\"abc\", \"/\")", "\"abc\""},
      {"drop(\"abc\", -1)", "error: second argument must be positive"},
      {"drop(\"abc\", 99999999999999999999)", "error: second argument is too large"},
      {"drop(\"abc\", [1])", "error: second argument must be a positive integer or a string"},
      {"snarf(\"12ab\", digits)", "\"12\""},
      {"snarf(\"12ab\", \"digit\")", "\"12\""},
      {"snarf(\"digest\", \"digits\" )", "\"\""},
      {"snarf(\"abacus\", \"ab\")", "\"aba\""},
      {"snarf(\"abc\", 3)", "error: second argument must be a string"},
  });
}

TEST(Editing, Rewriting) {
  Check({
      {"insert(\"abc\", 0, \"X\")", "\"Xabc\""},
      {"insert(\"abc\", 3, `X`)", "\"abcX\""},
      {"insert(\"abc\", -1, \"X\")", "\"abXc\""},
      {"insert(\"abc\", 4, \"X\")", "error: string index `4' out of range"},
      {"insert(\"abc\", -4, \"X\")", "error: string index `-4' out of range"},
      {"insert(\"abc\", 9, 1)", "error: third argument must be a string"},
      {"insert(\"abc\", \"1\", 1)", "error: second argument must be a 32-bit integer"},
      {"repeat(\"ab\", 3)", "\"ababab\""},
      {"repeat(\"ab\", 0)", "\"\""},
      {"repeat(\"\", 2147483647)", "\"\""},
      {"repeat(\"ab\", -1)", "error: second argument must be non-negative"},
      {"reverse(\"a\\351c\")", "\"c\\351a\""},
      {"rotate(\"abcde\", 1)", "\"eabcd\""},
      {"rotate(\"abcde\", -1)", "\"eabcd\""},
      {"rotate(\"abcde\", 5)", "\"abcde\""},
      {"rotate(\"ab\", 2147483647)", "\"ba\""},
      {"rotate(\"ab\", -2147483648)", "\"ab\""},
      {"rotate(\"abc\", x)", "error: expecting argument 2 to be a 32-bit integer, but got x"},
      {"shift(\"abz\", 1)", "\"bc{\""},
      {"shift(\"ab\", 2147483647)", "\"`a\""},
      {"shift(\"bab\", -97)", "\"\\001\""},
      {"shift(\"\\377\", 2)", "\"\\001\""},
      {"exchange(\"abc\", 1, 3)", "\"cba\""},
      {"exchange(\"abc\", 0, 0)", "\"abc\""},
      {"exchange(\"abc\", 0, 1)", "error: second argument must be positive"},
      {"exchange(\"abc\", 1, -1)", "error: third argument must be positive"},
      {"exchange(\"\", 5, 1)", "\"\""},
      {"exchange(\"abc\", 4, 5)", "error: second argument is too large"},
      {"exchange(\"abc\", 1, 5)", "error: third argument is too large"},
      {"exchange(\"abc\", x, y)", "error: second argument must be a 32-bit integer"},
      {"cap(\"s\", \"<\", `>`)", "\"<s>\""},
      {"cap(\"s\", \"<\", 3)", "error: third argument must be a string"},
  });
}

TEST(Editing, Questions) {
  Check({
      {"isprefix(\"\", \"abc\"), isprefix(\"ab\", `abc`), isprefix(\"abcd\", \"abc\")",
       "true, true, false"},
      {"issuffix(\"\", \"\"), issuffix(\"bc\", \"abc\"), issuffix(\"xabc\", \"abc\")",
       "true, true, false"},
      {"has(\"bx\", \"abc\"), has(\"x\", \"abc\")", "true, false"},
      {"has(\"\", \"abc\")", "error: first argument must be be the empty string"},
      {"has(\"\", 1)", "error: second argument must be a string"},
      {"strchr(\"\", \"abc\"), strchr(\"b\", \"abcb\"), strchr(\"x\", \"abc\")", "4, 2, 0"},
      {"strrchr(\"\", \"abc\"), strrchr(\"b\", \"abcb\"), strrchr(\"x\", \"\")", "4, 4, 0"},
      {"ord(\"\\377\"), ord(\"\")", "255, 0"},
      {"char(65), char(0), char(255)", "\"A\", \"\", \"\\377\""},
      {"char(256)", "error: integer argument is too large"},
      {"char(-1)", "error: integer argument is too large"},
      {"char(-99999999999999999999)", "error: integer argument is too large"},
      {"char(\"A\")", "error: argument must be a 32-bit integer"},
      {"numboccur(\"banana\", \"an\"), numboccur(\"abc\", \"\")", "3, 0"},
      {"max(\"ab\\351\"), min(\"b\\351a\")", "\"\\351\", \"a\""},
      {"max(\"a\"), max(\"\"), min(\"a\"), min(\"\")",
       "\"\\001\", \"\\001\", \"\\377\", \"\\377\""},
      {"max(1)", "error: argument must be a string"},
  });
}

TEST(Editing, CountsAndKinds) {
  Check({
      {"length()", "error: expecting one argument, but got 0"},
      {"length(5, 6)", "error: first argument must be a string"},
      {"length(\"abc\", 6)", "3"},
      {"cap(\"a\", \"b\")", "error: expecting 3 arguments, but got 2"},
      {"cap(1, 2, 3)", "error: first argument must be a string"},
      {"strchr(\"a\")", "error: expecting 2 arguments, but got 1"},
      {"strchr(\"a\", {\"a\"})", "error: second argument must be a string"},
  });
}

TEST(Editing, ReturnsTheArgumentItself) {
  struct Case {
    const char* call;
    bool itself;
  };
  const Case cases[] = {
      {"take(x, 5)", true},        {"take(x, 3)", false},        {"take(x, \"z\")", false},
      {"substr(x, 1 .. 3)", true}, {"substr(x, 1 .. 2)", false}, {"drop(x, 0)", false},
      {"repeat(x, 1)", true},      {"rotate(x, 0)", true},       {"rotate(x, 3)", false},
      {"exchange(x, 1, 1)", true}, {"exchange(x, 1, 2)", false}, {"exchange(x, 2, 3)", true},
      {"exchange(x, 9, 9)", true}, {"shift(x, 0)", false},       {"reverse(x)", false},
  };
  VelmorHeap* const heap = session().heap();
  for (const auto& [call, itself] : cases) {
    for (const bool as_name : {false, true}) {
      const HostObject value = as_name ? velmor_name(heap, "abb") : velmor_string(heap, "abb");
      velmor_assign(heap, velmor_name(heap, "x"), value);
      const HostObject result = session().evaluate(call).value;
      const bool name_is_copied = as_name && std::string(call) == "substr(x, 1 .. 3)";
      EXPECT_EQ(itself && !name_is_copied, result == value) << call << (as_name ? " (name)" : "");
    }
  }
  velmor_assign(heap, velmor_name(heap, "x"), 0);
}

// The scratch buffer holds 8189 bytes and a terminator; one more goes to the heap.
TEST(Editing, AroundTheScratchBuffer) {
  for (const std::size_t n : {8188U, 8189U, 8190U, 8191U, 8192U}) {
    const std::string whole = text(n);
    Check({{"reverse(" + whole + ")", whole},
           {"insert(" + text(n - 1) + ", 0, \"x\")", whole},
           {"repeat(\"x\", " + std::to_string(n) + ")", whole},
           {"take(" + text(n + 1) + ", " + std::to_string(n) + ")", whole}});
  }
}

// 2^34 bytes times 2^30 is no size at all. The text is a header and pages that are never touched.
TEST(Editing, RepeatBeyondAllSizes) {
  constexpr std::uint64_t kTextBytes = std::uint64_t{1} << 34;
  constexpr std::uint64_t kWords = kTextBytes / 8 + 4;  // three before the text, one after it
  void* const block = mmap(nullptr, 8 * kWords, PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(MAP_FAILED, block);
  *static_cast<std::uint64_t*>(block) = std::uint64_t{HOST_TAG_STRING} << 32 | kWords;
  VelmorHeap* const heap = velmor_heap_new();
  const HostObject arguments[] = {reinterpret_cast<HostObject>(block),
                                  velmor_integer(heap, 1 << 30)};
  const HostObject argseq = velmor_sequence(heap, 2, arguments);
  EXPECT_EQ(0, velmor_call(heap, vstring_repeat, argseq, nullptr));
  EXPECT_STREQ("out of memory", velmor_error(heap));
  velmor_heap_free(heap);
  munmap(block, 8 * kWords);
}

TEST(Iota, Forms) {
  Check({
      {"iota(3)", "\"\\001\\002\\003\""},
      {"length(iota(255))", "255"},
      {"iota(65 .. 70), iota(65, 70)", "\"ABCDEF\", \"ABCDEF\""},
      {"iota(\"a\" .. \"e\"), iota(\"ax\", \"ey\")", "\"abcde\", \"abcde\""},
      {"iota(\"\\376\", \"\\377\")", "\"\\376\\377\""},
      {"iota(\"\", \"\\377\")", "\"\""},
      {"iota(0)", "error: integer argument must be in the range 1 .. 255"},
      {"iota(256)", "error: integer argument must be in the range 1 .. 255"},
      {"iota(2147483648)", "error: integer argument is too large"},
      {"iota(0 .. 300)", "error: lower endpoint of range must be in the range 1 .. 255"},
      {"iota(1 .. 300)", "error: upper endpoint of range must be in the range 1 .. 255"},
      {"iota(70 .. 65)",
       "error: left endpoint of range must be less than or equal to the right endpoint"},
      {"iota(\"z\", \"a\")",
       "error: left endpoint of range must be less than or equal to the right endpoint"},
      {"iota(a .. \"e\")", "error: endpoints of range must be small integers"},
      {"iota(1, \"e\")", "error: endpoints of range must be small integers"},
      {"iota(1 .. 2147483648)", "error: endpoints of range must be small integers"},
      {"iota(\"a\")", "error: first argument must be an integer or an integer range"},
      {"iota()", "error: expecting one or two arguments, but received 0"},
      {"iota(1, 2, 3)", "error: expecting one or two arguments, but received 3"},
  });
}

}  // namespace
}  // namespace vstring_test
