// Message formatting.
#include <gtest/gtest.h>

#include <cstdarg>
#include <string>

#include "support/allocations.h"
#include "support/check.h"
#include "support/direct.h"

namespace vstring_test {
namespace {

TEST(Fmtmsg, Placeholders) {
  Check({
      {R"(fmtmsg("abc"), fmtmsg(abc), fmtmsg(""))", R"("abc", "abc", "")"},
      {R"(fmtmsg("a%1b", 7), fmtmsg("%2%1", x, "\351"), fmtmsg("<%1>", ""))",
       R"("a7b", "\351x", "<>")"},
      {R"(fmtmsg("%1", [1, "a"]), fmtmsg("%1", 99999999999999999999), fmtmsg("%9", 1, 2, 3, 4, 5, 6, 7, 8, z))",
       R"("[1, \"a\"]", "99999999999999999999", "z")"},
      {R"(fmtmsg("%-1 %-2 %-3 %-4", 1, 2, 3, 4), fmtmsg("%-1 %-2 %-3", 11, 22, -3))",
       R"("1st 2nd 3rd 4th", "11st 22nd -3rd")"},
      {R"(fmtmsg("%-1, %-2", -2147483648, 0))", R"("-2147483648th, 0th")"},
      {R"(fmtmsg("%0", x, 5, "y"), fmtmsg("%0"), fmtmsg("%0", -7, [1], 99999999999))",
       R"("x, 5, y", "", "-7, [1], 99999999999")"},
      {R"(fmtmsg("100%"), fmtmsg("%"), fmtmsg("%%1", 7), fmtmsg("%%%1", 7))",
       R"("100%", "%", "%%1", "%%%1")"},
      {R"(fmtmsg("%x%-%-0%-x", 7), fmtmsg("%1%1%%", 7), fmtmsg("%1%", 7), fmtmsg(`%1`, "%1"))",
       R"("%x%-%-0%-x", "77%%", "7%", "%1")"},
      {"fmtmsg()", "error: no format string specified"},
      {R"(fmtmsg("%1%-2", 1, "2"))",
       "error: argument 2 after the format string must be a small integer"},
      {R"(fmtmsg("%-1", 2147483648))",
       "error: argument 1 after the format string must be a small integer"},
  });
}

TEST(Fmtmsg, AFormatWithoutPercentIsReturnedItself) {
  CheckIdentity({{"abc", "", "fmtmsg(x)", "fmtmsg(\"%1\", x)"}});
}

// A host whose evaluation calls the library again, or answers with nonsense.
class OwnEvaluation : public testing::Test {
 protected:
  using Evaluate = HostObject (*)(HostObject procedure, HostObject a, HostObject b);

  OwnEvaluation() {
    table_ = *velmor_table(heap());
    table_.HostEvalProc = evaluate_two;
  }

  static HostObject evaluate_two(HostObject procedure, std::int64_t n, ...) {
    EXPECT_EQ(2, n);
    std::va_list list;
    va_start(list, n);
    const HostObject a = va_arg(list, HostObject);
    const HostObject b = va_arg(list, HostObject);
    va_end(list);
    EXPECT_EQ(before_ + 3, velmor_protected_count(heap()));
    return evaluate_(procedure, a, b);
  }

  std::string fmtmsg(Evaluate evaluate, const Values& arguments) {
    evaluate_ = evaluate;
    before_ = velmor_protected_count(heap());
    const std::string answer =
        call([](const HostTable*, HostObject argseq) { return vstring_fmtmsg(&table_, argseq); },
             arguments);
    EXPECT_EQ(before_, velmor_protected_count(heap()));
    return answer;
  }

  static VelmorHeap* heap() { return session().heap(); }

  static inline HostTable table_;
  static inline Evaluate evaluate_;
  static inline std::size_t before_;
};

TEST_F(OwnEvaluation, MayCallTheLibraryAgain) {
  const Evaluate nested = [](HostObject, HostObject, HostObject) {
    const std::string filler(9000, '.');
    const std::string other = text(vstring_fmtmsg, {"<%1>", filler});
    EXPECT_EQ("<" + filler + ">", other);
    EXPECT_EQ("error: too few parameters", call(vstring_fmtmsg, {"x%2"}));
    return velmor_string(heap(), "inner");
  };
  const std::string start(10000, 'a');
  const std::size_t blocks = live_blocks();
  EXPECT_EQ(quoted(start + "inner inner inner"), fmtmsg(nested, {start + "%1 %2 %1", 7, list({})}));
  EXPECT_EQ(blocks, live_blocks());
}

TEST_F(OwnEvaluation, MustAnswerWithAText) {
  const Evaluate number = [](HostObject, HostObject, HostObject) {
    return velmor_integer(heap(), 7);
  };
  const std::string start = "error: assertion failed [\"vstring-misc\":";
  const std::size_t blocks = live_blocks();
  const std::string answer = fmtmsg(number, {"%1", 7});
  EXPECT_EQ(start, answer.substr(0, start.size()));
  EXPECT_EQ(blocks, live_blocks());
}

// A name that the host prints in a way of its own goes through sprintf, in %1 but not in %0.
TEST_F(OwnEvaluation, NamesWithASpellingOfTheirOwn) {
  const Evaluate spelling = [](HostObject procedure, HostObject a, HostObject b) {
    EXPECT_STREQ("sprintf", velmor_text(procedure));
    EXPECT_STREQ("%a", velmor_text(a));
    return velmor_string(heap(), (std::string("local ") + velmor_text(b)).c_str());
  };
  const HostObject name = vstring_test::name("fmtmsg_name");
  auto* const attribute = reinterpret_cast<HostObject*>(name) + 2;
  ASSERT_EQ(0U, *attribute);
  const std::uint64_t empty = (std::uint64_t{HOST_TAG_SEQUENCE} << 32) | 1;
  *attribute = velmor_float(heap(), 1.5);
  EXPECT_EQ("\"local fmtmsg_name, fmtmsg_name\"", fmtmsg(spelling, {"%1, %0", name}));
  // Neither the empty attribute nor what is no object tells of one.
  for (const HostObject other : {reinterpret_cast<HostObject>(&empty), HostObject{0x5bd1e995}}) {
    *attribute = other;
    EXPECT_EQ("\"fmtmsg_name\"", fmtmsg(spelling, {"%1", name}));
  }
  *attribute = 0;
}

}  // namespace
}  // namespace vstring_test
