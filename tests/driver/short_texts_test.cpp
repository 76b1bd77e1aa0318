// What fits takes no memory, and what is not built in the scratch buffer leaves it alone.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/allocations.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

std::string letters(std::int64_t n) { return std::string(static_cast<std::size_t>(n), 'x'); }

bool needs_memory(VelmorCommand command, const Values& arguments) {
  fail_allocation(1);
  const HostObject result = result_of(command, arguments);
  const bool has_failed = allocation_failed();
  fail_allocation(0);
  EXPECT_EQ(has_failed, result == 0);
  return has_failed;
}

TEST(ShortTexts, TakeNoMemory) {
  struct Row {
    VelmorCommand command;
    Values (*arguments)(std::int64_t n);
    std::int64_t longest;  // one more takes a block
  };
  const Row rows[] = {
      {vstring_fill,
       [](std::int64_t n) -> Values {
         return {"x", n};
       },
       8189},
      {vstring_cap,
       [](std::int64_t n) -> Values {
         return {letters(n), "", ""};
       },
       8189},
      {vstring_wrap,
       [](std::int64_t n) -> Values {
         return {letters(n), 80};
       },
       8189},
      {vstring_fmtmsg,
       [](std::int64_t n) -> Values {
         return {"%1", letters(n)};
       },
       8191},
      {vstring_fmttime, [](std::int64_t n) -> Values { return {letters(n)}; }, 8190},
      {vstring_casesplit, [](std::int64_t n) -> Values { return {letters(n) + "Y"}; }, 8191},
      {vstring_substx,
       [](std::int64_t n) -> Values {
         return {std::string(5000, 'y') + letters(n), "y", ""};
       },
       8189},
      {vstring_borderarray, [](std::int64_t n) -> Values { return {letters(n)}; }, 511},
      {vstring_overlap,
       [](std::int64_t n) -> Values {
         return {letters(n) + "x", letters(n)};
       },
       511},
  };
  for (const Row& row : rows) {
    EXPECT_FALSE(needs_memory(row.command, row.arguments(row.longest))) << &row - rows;
    EXPECT_TRUE(needs_memory(row.command, row.arguments(row.longest + 1))) << &row - rows;
  }
  EXPECT_FALSE(needs_memory(vstring_overlap, {letters(100000), ""}));
  std::string syllables;
  for (int i = 0; i < 10000; ++i) syllables += "bd";
  EXPECT_FALSE(needs_memory(vstring_metaphone, {syllables}));
  EXPECT_FALSE(needs_memory(vstring_casesplit, {letters(100000)}));
}

TEST(ShortTexts, LeaveTheScratchBufferAlone) {
  const std::pair<VelmorCommand, Values> calls[] = {
      {vstring_fmtmsg, {"%1 %-1", 7}},
      {vstring_fmttime, {"%c"}},
      {vstring_casesplit, {"aBc"}},
      {vstring_casesplit, {"abc"}},
      {vstring_regmatch, {"b", "abc", name("scratch_name")}},
      {vstring_regsub, {"b", "abc", "[&]"}},
  };
  for (const auto& [command, arguments] : calls) {
    std::strcpy(smbuf, "mark");
    EXPECT_NE(0U, result_of(command, arguments));
    EXPECT_STREQ("mark", smbuf);
  }
}

// A long piece shows the text that was built in the scratch buffer last, be it by a call that
// failed: one after the other, whatever comes of the scan.
TEST(ShortTexts, PiecesPassThroughTheScratchBuffer) {
  const std::string y = std::string(9000, 'y');
  const auto split = [](const char* pattern, const std::string& t) {
    return call(vstring_regsplit, {pattern, t});
  };
  EXPECT_EQ("\"old\"", split(",", "old,"));
  EXPECT_EQ("error: cannot split", split(",|$", "ab,cd"));
  EXPECT_EQ("\"ab\", \"z\"", split(",", y + ",z"));
  EXPECT_EQ("error: cannot split", split(",|$", y + ",one," + y + ",x"));
  EXPECT_EQ("\"one\", \"a\", \"a\", \"b\"", split(",", y + ",a," + y + ",b,"));
  EXPECT_STREQ("b", smbuf);
}

}  // namespace
}  // namespace vstring_test
