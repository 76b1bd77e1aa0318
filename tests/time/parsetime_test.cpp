// parsetime: fields, and the clocks of zones that change them.
#include <gtest/gtest.h>

#include <map>

#include "support/check.h"
#include "support/direct.h"
#include "time/zone.h"

namespace vstring_test {
namespace {

TEST(Parsetime, TimesOfOtherZones) {
  Check({
      {R"(parsetime("1972-09-27 00:00 +0000", "%Y-%m-%d %R %z"))", "86400000"},
      {R"(parsetime("1970-01-01T01:00:00+01:00", "%Y-%m-%dT%T%z"))", "0"},
      {R"(parsetime("29 feb 2023", "%d %b %Y"))", "FAIL"},
      {R"(parsetime("Thursday, 1 January 1970 Z", "%A, %e %B %Y %z"))", "0"},
      {R"(parsetime("2023-1-5x"))", "FAIL"},
      {R"(parsetime("12/31/69 Z", "%D %z"))", "-86400"},
      {R"(parsetime("12:30 am Z", "%I:%M %p %z"))", "1800"},
      {R"(parsetime("1970 366 Z", "%Y %j %z"))", "FAIL"},
      {R"(parsetime("x", "%Q"))", "error: unrecognised conversion `\"%Q\"'"},
      {R"(parsetime("x", "%"))", "error: unrecognised conversion `\"%\"'"},
      {R"(parsetime("x", "%%%"), 7)", "error: unrecognised conversion `\"%\"'"},
      {R"(parsetime("x", "%Y%E%Q"))", "error: unrecognised conversion `\"%E\"'"},
      {R"(parsetime(`Z`, `%z`, 7), parsetime("Sat Jul  4 01:02:03 2026-0230", "%c%z"))",
       "0, 1783135923"},
  });
}

// Each text, of UTC, with what its format makes of it; "-" is FAIL.
TEST(Parsetime, Fields) {
  const Zone zone("UTC0");
  struct {
    const char* format;
    const char* answers;  // "text>seconds|text>seconds"
  } const rows[] = {
      {"", ">0| >-|x>-"},
      {" %n\\t", ">0| \\t\\n\\v\\f\\r >0|a>-"},
      {"a%%b", "a%b>0|a %b>-|a%>-"},
      {"%H", "0>0|00>0|23>82800|24>-|1 >-|>-|007>-|x>-| 1>-|+1>-"},
      {"%k,%e", "  7,  2>111600|\\t7,2>-|7,0>-|7,32>-"},
      {"%I%p", "12am>0|12PM>43200|1Pm>46800|0am>-|13am>-|12xm>-|12a>-|7AM>25200"},
      {"%H%p", "0pm>0|12am>43200"},
      {"%p%l", "pm 3>54000|am12>0"},
      {"%H %I", "13 1>3600"},
      {"%p%I %H", "pm1 1>3600"},
      {"%M:%S", "59:59>3599|60:00>-|00:60>-|1:2>62"},
      {"%y", "69>-31536000|68>3092601600|0>946684800|100>-"},
      {"%Y", "0>-62167219200|9999>253370764800|12345>-|70>-59958144000"},
      {"%y %Y", "99 1970>0"},
      {"%Y%m%d", "20240229>1709164800|19000229>-|20000229>951782400|2024024>1707004800|20230431>-"},
      {"%m %b", "13 jan>-|5 JAN>0|5 january>0|5 janu>-"},
      {"%bx", "mayx>10368000|Marchx>5097600|mARx>5097600|maxx>-|Januaryx>0"},
      {"%a", "thu>0|THURSDAY>0|Thurs>-|fri>-"},
      {"%a %A", "Fri thu>0|thu Fri>-"},
      {"%j", "1>0|366>-|60>5097600|0>-|0001>-"},
      {"%Y %j %m %d", "2024 60 2 29>1709164800|2023 60 2 29>-|2023 60 3 1>1677628800"},
      {"%Y %j %d", "2024 366 31>1735603200|2023 366 31>-|2024 366 30>-"},
      {"%d %d", "32 1>-|31 1>0"},
      {"%z",
       "Z>0|z>0|+01>-3600|-0130>5400|+23:59>-86340|+24>-|+0060>-|+1>-|01>-|+>-|+01:5>-|+01:>-"},
      {"%z:5", "+01:5>-3600|+01:55>-"},
      {"%z%z", "+01Z>0|Z-01>3600"},
      {"%v %R", "2-Jan-1970 00:01>86460| 2-feb-1970 1:01>2768460"},
      {"%x %r", "01/02/70 12:00:00 pm>129600"},
      {"%X", "1:1:1>3661|1:1>-"},
  };
  for (const auto& [format, answers] : rows) {
    std::string rest = answers + std::string("|");
    for (std::size_t end; (end = rest.find('|')) != rest.npos; rest.erase(0, end + 1)) {
      const std::size_t to = rest.find('>');
      const std::string text = rest.substr(0, to);
      const std::string expected = rest.substr(to + 1, end - to - 1);
      EXPECT_EQ(expected == "-" ? "FAIL" : expected,
                evaluate("parsetime(\"" + text + "\", \"" + format + "\")"))
          << format << ' ' << text;
    }
  }
  Check({{"parsetime(\"1970-01-02\"), parsetime(\" 1970-01-02\"), parsetime(\"\")",
          "86400, FAIL, FAIL"}});
}

TEST(Parsetime, ClocksThatAreSet) {
  const auto check = [](const char* zone_name, const char* clock, const char* expected) {
    const Zone zone(zone_name);
    EXPECT_EQ(expected, call(vstring_parsetime, {clock, "%Y-%m-%d %T"})) << zone_name << clock;
  };
  check("Europe/Berlin", "2021-10-31 02:30:00", "1635640200");  // first of two
  check("Europe/Berlin", "2021-03-28 01:59:59", "1616893199");
  check("Europe/Berlin", "2021-03-28 02:00:00", "FAIL");  // passed over
  check("Europe/Berlin", "2021-03-28 03:00:00", "1616893200");
  check("Europe/Berlin", "1893-04-01 00:06:31", "FAIL");  // local time gives way to a zone's
  check("Europe/Berlin", "0000-01-01 00:00:00", "-62167222408");
  check("Pacific/Apia", "2011-12-30 12:00:00", "FAIL");  // a day without a clock
  check("Pacific/Kwajalein", "1969-09-30 20:00:00", "-8002800");
  check("XXX-24:59:59YYY,0/0,J365/25", "2021-07-01 00:00:00", "1625004001");
  check("XXX24:59:59", "2021-07-01 00:00:00", "1625187599");
  check("right/UTC", "2016-12-31 23:59:59", "1483228825");  // before a leap second, of 26 so far
  check("right/UTC", "2017-01-01 00:00:00", "1483228827");
}

class ParsetimeOfFmttime : public testing::TestWithParam<const char*> {};

// Every half hour of ten years; each zone has a process of its own under ctest.
TEST_P(ParsetimeOfFmttime, IsTheFirstTimeOfThatClock) {
  const Zone zone(GetParam());
  constexpr const char* kFormat = "%A %Y-%m-%d %I:%M:%S %p, day %j";
  std::map<std::string, std::int64_t> first;
  constexpr std::int64_t kBegin = 1546300800;  // 2019
  for (std::int64_t t = kBegin; t < kBegin + 3653 * 86400; t += 1800) {
    const std::string shown = text(vstring_fmttime, {kFormat, equation("timestamp", t)});
    const std::int64_t expected = first.emplace(shown, t).first->second;
    ASSERT_EQ(std::to_string(expected), call(vstring_parsetime, {shown, kFormat})) << t;
  }
}
INSTANTIATE_TEST_SUITE_P(Zones, ParsetimeOfFmttime,
                         testing::Values("Europe/Berlin", "America/New_York",
                                         "Australia/Lord_Howe"));

}  // namespace
}  // namespace vstring_test
