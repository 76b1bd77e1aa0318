// Substrings, editing and iota, as a user calls them.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <cstdint>
#include <string>

#include "support/check.h"

namespace vstring_test {
namespace {

TEST(Editing, Substrings) {
  Check({
      {R"(length("abc", 6), length(`a name`), length("12345678"), substr("hello", 2 .. 3))",
       R"(3, 6, 8, "el")"},
      {R"(substr("hello", -3 .. -1), substr("hello", 4 .. 3), substr("hello", 40 .. 39))",
       R"("llo", "", "")"},
      {R"(substr("hello", 0 .. -1), substr("hello", 3 .. 99), substr(`hello`, 1 .. -1))",
       R"("", "llo", "hello")"},
      {R"(substr("", 7))", R"("")"},
      {R"(take("abc", 0), take("abc", 5), take("hello world", " "), take("hello", `xyz`))",
       R"("", "abc", "hello", "hello")"},
      {R"(drop("abc", 0), drop("abc", 3), drop("abc", 4), drop("a/b/c", "/"))",
       R"("abc", "", "", "c")"},
      {R"(drop("abc", "/"))", R"("abc")"},
      {R"(snarf("12ab", digits), snarf("12ab", "digit"), snarf("digest", "digits" ))",
       R"("12", "12", "")"},
      {R"(snarf("abacus", "ab"))", R"("aba")"},
  });
}

TEST(Editing, Rewriting) {
  Check({
      {R"(insert("abc", 0, "X"), insert("abc", 3, `X`), insert("abc", -1, "X"))",
       R"("Xabc", "abcX", "abXc")"},
      {"insert(\"abc\", 4, \"X\")", "error: string index `4' out of range"},
      {"insert(\"abc\", -4, \"X\")", "error: string index `-4' out of range"},
      {R"(repeat("ab", 3), repeat("ab", 0), repeat("", 2147483647), reverse("a\351c"))",
       R"("ababab", "", "", "c\351a")"},
      {R"(rotate("abcde", 1), rotate("abcde", -1), rotate("abcde", 5), rotate("ab", 2147483647))",
       R"("eabcd", "eabcd", "abcde", "ba")"},
      {R"(rotate("ab", -2147483648))", R"("ab")"},
      {"rotate(\"abc\", x)", "error: expecting argument 2 to be a 32-bit integer, but got x"},
      {R"(shift("abz", 1), shift("ab", 2147483647), shift("bab", -97), shift("\377", 2))",
       R"("bc{", "`a", "\001", "\001")"},
      {R"(exchange("abc", 1, 3), exchange("abc", 0, 0))", R"("cba", "abc")"},
      {"exchange(\"abc\", 1, -1)", "error: third argument must be positive"},
      {R"(exchange("", 5, 1))", R"("")"},
      {"exchange(\"abc\", 1, 5)", "error: third argument is too large"},
      {R"(cap("s", "<", `>`))", R"("<s>")"},
  });
}

TEST(Editing, Questions) {
  Check({
      {R"(isprefix("", "abc"), isprefix("ab", `abc`), isprefix("abcd", "abc"))",
       "true, true, false"},
      {R"(issuffix("", ""), issuffix("bc", "abc"), issuffix("xabc", "abc"))", "true, true, false"},
      {R"(has("bx", "abc"), has("x", "abc"))", "true, false"},
      {"has(\"\", \"abc\")", "error: first argument must be be the empty string"},
      {R"(strchr("", "abc"), strchr("b", "abcb"), strchr("x", "abc"))", "4, 2, 0"},
      {R"(strrchr("", "abc"), strrchr("b", "abcb"), strrchr("x", ""))", "4, 4, 0"},
      {R"(ord("\377"), ord(""))", "255, 0"},
      {"char(65), char(0), char(255)", R"("A", "", "\377")"},
      {"char(\"A\")", "error: argument must be a 32-bit integer"},
      {R"(numboccur("banana", "an"), numboccur("abc", ""), max("ab\351"), min("b\351a"))",
       R"(3, 0, "\351", "a")"},
      {R"(max("a"), max(""), min("a"), min(""))", R"("\001", "\001", "\377", "\377")"},
  });
}

TEST(Editing, ReturnsTheArgumentItself) {
  CheckIdentity({{"abb",
                  "take(x, 5); repeat(x, 1); rotate(x, 0); exchange(x, 1, 1); exchange(x, 2, 3); "
                  "exchange(x, 9, 9)",
                  "substr(x, 1 .. 3)",
                  "take(x, 3); take(x, \"z\"); substr(x, 1 .. 2); drop(x, 0); rotate(x, 3); "
                  "exchange(x, 1, 2); shift(x, 0); reverse(x)"}});
}

// 2^34 bytes times 2^30 is no size at all. The text is a header, its last byte, and pages that are
// never touched.
TEST(Editing, RepeatBeyondAllSizes) {
  constexpr std::uint64_t kTextBytes = std::uint64_t{1} << 34;
  constexpr std::uint64_t kWords = kTextBytes / 8 + 4;  // three before the text, one after it
  void* const block = mmap(nullptr, 8 * kWords, PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(MAP_FAILED, block);
  *static_cast<std::uint64_t*>(block) = std::uint64_t{HOST_TAG_STRING} << 32 | kWords;
  static_cast<char*>(block)[8 * (kWords - 1) - 1] = 'x';
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
      {"iota(3), length(iota(255))", R"("\001\002\003", 255)"},
      {R"(iota(65 .. 70), iota(65, 70), iota("a" .. "e"), iota("ax", "ey"))",
       R"("ABCDEF", "ABCDEF", "abcde", "abcde")"},
      {R"(iota("\376", "\377"), iota("", "\377"))", R"("\376\377", "")"},
      {"iota(0 .. 300)", "error: lower endpoint of range must be in the range 1 .. 255"},
      {"iota(1 .. 300)", "error: upper endpoint of range must be in the range 1 .. 255"},
      {"iota(\"a\")", "error: first argument must be an integer or an integer range"},
      {"iota()", "error: expecting one or two arguments, but received 0"},
      {"iota(1, 2, 3)", "error: expecting one or two arguments, but received 3"},
  });
}

}  // namespace
}  // namespace vstring_test
