// my_strftime and fmttime.
#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <ctime>
#include <string>

#include "host/vstring.h"
#include "support/check.h"
#include "time/zone.h"

namespace vstring_test {
namespace {

// The formatted record, or "<0>" when the formatter gives up.
std::string formatted(const char* format, const std::tm& time, std::size_t size = 512) {
  std::string buffer(size, '#');
  const std::size_t n = my_strftime(buffer.data(), size, format, &time);
  return n == 0 ? "<0>" : std::string(buffer.c_str(), n - 1);
}

// libc's own formatter: the same but for %c, %Z and %z, which are left out here.
std::string by_libc(const char* format, const std::tm& time) {
  char buffer[512];
  return {buffer, std::strftime(buffer, sizeof buffer, format, &time)};
}

constexpr const char* kEveryConversion =
    "%a %A %b %B %h %C %D %x %d %e %G %g %H %k %I %l %j %M %m %n %p %R %r %S %T %t %U %u %V %W %w "
    "%X %Y %y %% %EY %Od";

std::tm record(std::time_t seconds) {
  std::tm time;
  gmtime_r(&seconds, &time);
  return time;
}

TEST(Strftime, EveryDayOf400Years) {
  constexpr std::time_t kFirst = -25567;  // 1 January 1900
  for (std::time_t day = kFirst; day < kFirst + 146097; ++day) {
    const std::tm time = record(day * 86400 + (day + 40000) * 7919 % 86400);
    ASSERT_EQ(by_libc(kEveryConversion, time), formatted(kEveryConversion, time));
    ASSERT_EQ(by_libc("%a %b %d %H:%M:%S %Y,%d-%b-%Y", time), formatted("%c,%v", time));
  }
}

TEST(Strftime, TextModifiersAndRecordsOutOfRange) {
  // From seconds to years, then the days of week and year: all out of range.
  std::tm odd = {70, -1, 30, 40, 12, -1, 9, 999, 0, 0, nullptr};
  const std::pair<const char*, const char*> rows[] = {
      {"%a %A %b %B %h", "? ? ? ? ?"},
      {"%w %u %m %d %e %H %I %M %S %p %j", "6 6 12 31 31 23 11 00 61 PM 1000"},
      {"%v|%y|%Y|%C", "31-  ?-1899|-1|1899|18"},
      {"", ""},
      {"%", "%"},
      {"100%", "100%"},
      {"%%%", "%%"},
      {"%E%O", "%O"},
      {"%EO", "%EO"},
      {"%OEY", "%OEY"},
      {"%E", "%E"},
      {"%Ey%E%", "-1%"},
      {"%q%N%~%\xe9%{", "%q%N%~%\xe9%{"},
      {"[%z]%n%t", "[]\n\t"},
  };
  for (const auto& [format, expected] : rows) EXPECT_EQ(expected, formatted(format, odd)) << format;
  odd.tm_yday = 6;  // weeks are those of a Saturday, of a Sunday
  EXPECT_EQ("01 01", formatted("%U %W", odd));
  odd.tm_wday = -9;
  EXPECT_EQ("01 01", formatted("%U %W", odd));
  odd.tm_wday = 6;  // with a day before the first of January, which then is no day of the week
  odd.tm_yday = -1;
  EXPECT_EQ("00 1899", formatted("%V %G", odd));
  odd.tm_year = odd.tm_yday = odd.tm_wday = odd.tm_mon = odd.tm_mday = INT32_MAX;
  EXPECT_EQ("2147485547 2147483648", formatted("%Y %j", odd));
  EXPECT_NE("<0>", formatted("%U%W%V%G%g%c%v", odd));
}

TEST(Strftime, Sizes) {
  const std::tm time = record(0);
  EXPECT_EQ("1970", formatted("%Y", time, 5));
  EXPECT_EQ("<0>", formatted("%Y", time, 4));
  EXPECT_EQ("", formatted("", time, 1));
  EXPECT_EQ("", formatted("%z", time, 1));
  EXPECT_EQ("abc", formatted("abc", time, 5));
  EXPECT_EQ("<0>", formatted("abc", time, 4));  // it would fit, but there is nothing to convert
  EXPECT_EQ("abc%", formatted("abc%", time, 5));
  char buffer[8];
  EXPECT_EQ(0U, my_strftime(nullptr, 8, "%Y", &time));
  EXPECT_EQ(0U, my_strftime(buffer, 0, "%Y", &time));
  EXPECT_EQ(0U, my_strftime(buffer, 8, nullptr, &time));
  EXPECT_EQ(0U, my_strftime(buffer, 8, "%Y", nullptr));
  EXPECT_EQ(1U, my_strftime(buffer, 8, "", &time));
}

TEST(Strftime, TwoDigitYears) {
  const std::tm time = record(0);
  const std::pair<const char*, int> rows[] = {
      {"%y", 1},   {"%g", 1},   {"%D", 1},   {"%x", 1},   {"%Y", 0},   {"", 0},
      {"%y%c", 0}, {"%y%R", 0}, {"%y%r", 0}, {"%y%T", 0}, {"%y%X", 0}, {"%T%y", 1},
      {"%D%c", 0}, {"%c%D", 1}, {"%y%v", 1}, {"%y%H", 1}, {"%E%y", 0},
  };
  for (const auto& [format, expected] : rows) {
    y2k = 1 - expected;
    formatted(format, time);
    EXPECT_EQ(expected, y2k) << format;
  }
}

TEST(Fmttime, YearEndsInSeveralZones) {
  for (const char* name : {"UTC", "America/New_York", "Asia/Kolkata", "Pacific/Auckland",
                           "Pacific/Apia", "EST5EDT,M3.2.0,M11.1.0"}) {
    const Zone zone(name);
    for (int year = 1902; year <= 2037; ++year) {
      const std::chrono::sys_days new_year = std::chrono::year(year) / std::chrono::January / 1;
      const std::time_t midnight = new_year.time_since_epoch().count() * std::time_t{86400};
      for (std::time_t t = midnight - 4 * 86400 - 1; t < midnight + 4 * 86400; t += 43200) {
        const std::string call =
            "fmttime(\"%Y-%m-%d %T %G %V %j %u\", timestamp = " + std::to_string(t) + ")";
        std::tm local;
        localtime_r(&t, &local);
        ASSERT_EQ('"' + by_libc("%Y-%m-%d %T %G %V %j %u", local) + '"', evaluate(call))
            << name << ' ' << call;
      }
    }
  }
}

TEST(Fmttime, TimesAskedFor) {
  const Zone zone("UTC0");
  Check({
      {R"(fmttime("%c", timestamp = 0), fmttime(`%c`, `timestamp` = -1, 7))",
       R"("Thu Jan 01 00:00:00 1970", "Wed Dec 31 23:59:59 1969")"},
      {R"(fmttime("%D", "timestamp" = 2147483647), fmttime("%V %G", timestamp = 1104537600))",
       R"("01/19/38", "53 2004")"},
      {R"(fmttime("%V %G", timestamp = 1230508800), fmttime("%Z"), fmttime("", 2147483647))",
       R"("01 2009", "UTC0", "")"},
      {R"(fmttime("-", offset = -2147483648))", R"("-")"},
      {"fmttime(\"\", x = y)", "error: unrecognised option name `x'"},
      {"fmttime(\"\", 3 = 4)", "error: unrecognised option name `3'"},
      {"fmttime(\"\", \"Offset\" = 4)", "error: unrecognised option name `\"Offset\"'"},
      {"fmttime(\"\", timestamp = 2147483648)",
       "error: timestamp value must be a 32-bit signed integer"},
      {"fmttime(\"\", offset = \"1\")", "error: offset value must be a 32-bit signed integer"},
      {"fmttime(\"\", 2147483648)",
       "error: second argument must be a 32-bit signed integer time displacement or an equation of "
       "the form `timestamp = t', where t is a 32-bit signed integer"},
  });
  // The clock may strike between the two questions.
  const auto expect_now = [](const std::string& call, const char* format, std::int64_t offset) {
    const auto now = [&] {
      const std::time_t t = std::time(nullptr) + offset;
      return '"' + by_libc(format, *std::gmtime(&t)) + '"';
    };
    const std::string before = now();
    const std::string answer = evaluate(call);
    EXPECT_TRUE(answer == before || answer == now()) << call << ": " << answer;
  };
  for (const std::int64_t d : {0, 3600, -86400 * 400, INT32_MAX, INT32_MIN}) {
    for (const char* form : {"", "offset = "}) {
      expect_now("fmttime(\"%Y-%m-%d %H\", " + std::string(form) + std::to_string(d) + ")",
                 "%Y-%m-%d %H", d);
    }
  }
  expect_now("fmttime()", "%Y-%m-%d", 0);
}

TEST(Fmttime, ZoneText) {
  {
    const Zone zone(nullptr);
    EXPECT_EQ("\"???\"", evaluate("fmttime(\"%Z\")"));
  }
  const std::string name(9000, 'Z');
  const Zone zone(name.c_str());
  EXPECT_EQ("9000", evaluate("length(fmttime(\"%Z\"))"));
}

TEST(Fmttime, LeavesTheLocaleAsItWas) {
  ASSERT_NE(nullptr, std::setlocale(LC_TIME, "C.UTF-8"));
  Check({{"fmttime(\"%A\", timestamp = 43200)", "\"Thursday\""}});
  EXPECT_STREQ("C.UTF-8", std::setlocale(LC_TIME, nullptr));
  std::setlocale(LC_TIME, "C");
}

}  // namespace
}  // namespace vstring_test
