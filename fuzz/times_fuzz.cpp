// Time formats: conversions beside libc's, reading what was written, and reading anything.
#include <cstdlib>
#include <ctime>

#include "input.h"
#include "support/direct.h"

namespace {

using vstring_test::Input;

constexpr const char kConversions[] = "aAbBhCDxdeGgHkIljMmnpRrSTtUuVWwXYy%";
constexpr const char* kDates[] = {"%Y-%m-%d",     "%d %b %Y", "%Y %j",     "%e %B %Y",
                                  "%A, %m/%d %Y", "%v",       "%a%n%Y-%j", "%d.%m.%Y"};
constexpr const char* kClocks[] = {"%T", "%H:%M:%S", "%I:%M:%S %p", "%r",
                                   "%X", "%k %M %S", "%R:%S"};

// A format of libc's too.
std::string common_format(Input& input) {
  std::string format;
  for (std::size_t n = input.below(12); n > 0; --n) {
    const std::size_t i = input.below(sizeof kConversions + 3);
    format += i < sizeof kConversions - 1 ? std::string("%") + kConversions[i] : ".";
  }
  return format;
}

}  // namespace

void vstring_test::try_input(Input& input) {
  setenv("TZ", "UTC0", 1);
  const std::time_t t = static_cast<std::int32_t>(input.below(std::size_t{1} << 32));
  std::tm time;
  gmtime_r(&t, &time);
  char buffer[1024];
  const std::string common = common_format(input);
  buffer[std::strftime(buffer, sizeof buffer, common.c_str(), &time)] = '\0';
  const HostObject at = equation("timestamp", t);
  expect_same(buffer, text(vstring_fmttime, {common, at}));

  std::string format = std::string(kDates[input.below(std::size(kDates))]) + ' ' +
                       kClocks[input.below(std::size(kClocks))];
  expect_same(std::to_string(t),
              call(vstring_parsetime, {text(vstring_fmttime, {format, at}), format}));

  const std::string any = input.text(40);
  const std::string read = call(vstring_parsetime, {input.text(40), any});
  if (read.starts_with("error: ") || read == "FAIL") return;
  const std::int64_t found = std::stoll(read);
  if (found != static_cast<std::int32_t>(found)) return;
  format = "%Y-%m-%d %T";
  expect_same(read, call(vstring_parsetime,
                         {text(vstring_fmttime, {format, equation("timestamp", found)}), format}));
}
