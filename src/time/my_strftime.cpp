// my_strftime: calendar records as text.
//
// The conversions are those of POSIX strftime and of its older forms, with English names whatever
// the locale. Fields are limited to their ranges before they are printed; names are looked up by
// the field as it is, and are "?" where it has no name.
#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iterator>

#include "host/vstring.h"
#include "runtime/malformed_row.h"
#include "time/calendar.h"
#include "time/format_time.h"

std::int32_t y2k = 0;

namespace vstring::time {
namespace {

using std::int64_t;

constexpr char kShortWeekdays[][4] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr char kShortMonths[][4] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr int kJanuary = 0;
constexpr int kDecember = 11;

template <typename Name, std::size_t N>
const char* name(const Name (&names)[N], int i) {
  return i >= 0 && static_cast<std::size_t>(i) < N ? names[i] : "?";
}

// A calendar record, in 64 bits so that no sum overflows whatever a caller put into it. The time of
// day is within its range; the rest is what it was.
struct Record {
  int64_t year;  // of the common era
  int64_t month;
  int64_t day;
  int64_t weekday;  // 0 is Sunday
  int64_t day_of_year;
  int64_t hour = 0;
  int64_t minute = 0;
  int64_t second = 0;

  Record(int64_t y, int64_t m, int64_t d, int64_t w, int64_t yday)
      : year(y), month(m), day(d), weekday(w), day_of_year(yday) {}
  explicit Record(const std::tm& time)
      : Record(int64_t{time.tm_year} + 1900, time.tm_mon, time.tm_mday, time.tm_wday,
               time.tm_yday) {
    hour = std::clamp(time.tm_hour, 0, 23);
    minute = std::clamp(time.tm_min, 0, 59);
    second = std::clamp(time.tm_sec, 0, 61);
  }
};

int64_t hour_of_half_day(const Record& t) { return (t.hour + 11) % 12 + 1; }
int64_t month_number(const Record& t) { return std::clamp<int64_t>(t.month + 1, 1, 12); }
int64_t day_of_month(const Record& t) { return std::clamp<int64_t>(t.day, 0, 31); }
int64_t weekday(const Record& t) { return std::clamp<int64_t>(t.weekday, 0, 6); }
int64_t iso_weekday(const Record& t) { return weekday(t) == 0 ? 7 : weekday(t); }

bool is_leap(int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

// Weeks of the year so far, counted from its first Sunday or Monday.
int64_t sunday_week(const Record& t) { return (t.day_of_year + 7 - weekday(t)) / 7; }
int64_t monday_week(const Record& t) { return (t.day_of_year + 8 - iso_weekday(t)) / 7; }

// ISO 8601: week 1 is the one with the year's first Thursday.
int64_t iso_week(const Record& t) {
  int64_t week = monday_week(t);
  int64_t new_year = t.weekday - t.day_of_year % 7;  // the weekday of 1 January
  if (new_year < 0) new_year += 7;
  if (new_year >= 2 && new_year <= 4) {
    ++week;  // the days before the first Monday are a week of this year
  } else if ((new_year == 0 || new_year == 5 || new_year == 6) && week == 0) {
    // ... or of the year before, whose last day lies 364 or 365 days after its first.
    const int64_t last_year = t.year - 1;
    week = iso_week({last_year, kDecember, 31, new_year == 0 ? 6 : new_year - 1,
                     364 + (is_leap(last_year) ? 1 : 0)});
  }
  // The last days of December may already belong to week 1.
  const bool is_week_1 = t.month == kDecember && t.day <= 31 && t.weekday >= 1 && t.weekday <= 3 &&
                         t.day >= 28 + t.weekday;
  return is_week_1 ? 1 : week;
}

int64_t iso_year(const Record& t) {
  const int64_t week = iso_week(t);
  if (week == 1 && t.month == kDecember) return t.year + 1;
  if (week >= 52 && t.month == kJanuary) return t.year - 1;
  return t.year;
}

// How a number is printed, in the notation of printf: "%d", "%2d", "%02d".
struct NumberFormat {
  char pad = ' ';
  int width = 0;

  consteval NumberFormat(const char* format) {  // NOLINT: rows are written as plain literals
    if (*format++ != '%') malformed_row();
    if (*format == '0') pad = *format++;
    if (*format >= '1' && *format <= '9') width = *format++ - '0';
    if (format[0] != 'd' || format[1] != '\0') malformed_row();
  }
};

struct NumberRow {
  char conversion;
  NumberFormat format;
  int64_t (*value)(const Record& t);
};

// clang-format off

// Examples are of Thursday, 1 January 1970, 0:00.
constexpr NumberRow kNumbers[] = {
    {'C', "%02d", [](const Record& t) { return t.year / 100 % 1000; }},    // 19
    {'d', "%02d", day_of_month},                                           // 01
    {'e', "%2d",  day_of_month},                                           //  1
    {'G', "%d",   iso_year},                                               // 1970
    {'g', "%02d", [](const Record& t) { return iso_year(t) % 100; }},      // 70
    {'H', "%02d", [](const Record& t) { return t.hour; }},                 // 00
    {'I', "%02d", hour_of_half_day},                                       // 12
    {'j', "%03d", [](const Record& t) { return t.day_of_year + 1; }},      // 001
    {'k', "%2d",  [](const Record& t) { return t.hour; }},                 //  0
    {'l', "%2d",  hour_of_half_day},                                       // 12
    {'M', "%02d", [](const Record& t) { return t.minute; }},               // 00
    {'m', "%02d", month_number},                                           // 01
    {'S', "%02d", [](const Record& t) { return t.second; }},               // 00
    {'U', "%02d", sunday_week},                                            // 00
    {'u', "%d",   iso_weekday},                                            // 4
    {'V', "%02d", iso_week},                                               // 01
    {'W', "%02d", monday_week},                                            // 00
    {'w', "%d",   weekday},                                                // 4
    {'Y', "%d",   [](const Record& t) { return t.year; }},                 // 1970
    {'y', "%02d", [](const Record& t) { return (t.year - 1900) % 100; }},  // 70
};

// clang-format on

bool is_modifier(char c) { return c == 'E' || c == 'O'; }

// Writes to a buffer of `size` bytes, and only counts what no longer fits.
class Formatter {
 public:
  Formatter(char* out, std::size_t size, const std::tm& time)
      : out_(out), size_(size), time_(time), record_(time) {}

  // A composite conversion formats its own short format, so this nests once. That it clears `y2k`
  // again is meant: hosts have always read there whether a year of two digits came after it.
  void format(const char* p) {
    y2k = 0;
    for (; *p != '\0'; ++p) {
      if (*p != '%') {
        put(*p);
        continue;
      }
      ++p;
      // A modifier is ignored, but stands for itself where nothing follows that it could modify.
      if (is_modifier(*p) && p[1] != '\0' && !is_modifier(p[1])) ++p;
      if (*p == '\0') {
        put('%');
        return;
      }
      convert(*p);
    }
  }

  // Length of the whole text with its terminator.
  std::size_t finish() {
    put('\0');
    return length_;
  }

 private:
  void convert(char conversion) {
    if (const NumberRow* const row = find_conversion(kNumbers, conversion)) {
      put_number(row->format, row->value(record_));
      if (conversion == 'y' || conversion == 'g') y2k = 1;
    } else if (const CompositeRow* const composite = find_conversion(kComposites, conversion)) {
      format(composite->format);
    } else {
      convert_to_text(conversion);
    }
  }

  void convert_to_text(char conversion) {
    switch (conversion) {
      case 'a':
        return put(name(kShortWeekdays, time_.tm_wday));
      case 'A':
        return put(name(kWeekdays, time_.tm_wday));
      case 'b':
      case 'h':
        return put(name(kShortMonths, time_.tm_mon));
      case 'B':
        return put(name(kMonths, time_.tm_mon));
      case 'n':
        return put('\n');
      case 'p':
        return put(time_.tm_hour > 11 ? "PM" : "AM");
      case 't':
        return put('\t');
      case 'v':
        return put_stamp();
      case 'Z':
        return put_zone();
      case 'z':
        return;
      case '%':
        return put('%');
      default:
        put('%');
        put(conversion);
    }
  }

  // As in 01-Jan-1970: "%02d-%3.3s-%4d" in the notation of printf.
  void put_stamp() {
    const char* const month = name(kShortMonths, time_.tm_mon);
    put_number("%02d", day_of_month(record_));
    put(std::strlen(month) == 3 ? "-" : "-  ");
    put(month);
    put('-');
    put_number("%4d", record_.year);
  }

  void put_zone() {
    const char* const zone = std::getenv("TZ");
    put(zone != nullptr ? zone : "???");
  }

  void put_number(NumberFormat format, int64_t value) {
    char digits[24];
    char* const end = std::to_chars(digits, std::end(digits), value).ptr;
    const char* from = digits;
    if (format.pad == '0' && value < 0) put(*from++);  // zeros stand between sign and digits
    for (auto length = end - digits; length < format.width; ++length) put(format.pad);
    while (from != end) put(*from++);
  }

  void put(const char* text) {
    while (*text != '\0') put(*text++);
  }

  void put(char c) {
    if (length_ < size_) out_[length_] = c;
    ++length_;
  }

  char* const out_;
  const std::size_t size_;
  std::size_t length_ = 0;
  const std::tm& time_;
  const Record record_;
};

// Lets libc read the TZ variable once in the life of the library, before the first formatting.
void read_zone_once() {
  static bool is_first_call = true;
  if (is_first_call) tzset();
  is_first_call = false;
}

}  // namespace

std::size_t format_time(char* out, std::size_t size, const char* format, const std::tm& time) {
  read_zone_once();
  Formatter formatter(out, size, time);
  formatter.format(format);
  return formatter.finish();
}

}  // namespace vstring::time

std::size_t my_strftime(char* buffer, std::size_t size, const char* format, const std::tm* time) {
  y2k = 0;
  vstring::time::read_zone_once();  // whether or not anything is formatted
  if (buffer == nullptr || size == 0 || format == nullptr || time == nullptr) return 0;
  // Callers rely on plain text being refused one byte early, unless it is empty.
  if (*format != '\0' && std::strchr(format, '%') == nullptr && std::strlen(format) + 1 >= size) {
    return 0;
  }
  const std::size_t length = vstring::time::format_time(buffer, size, format, *time);
  return length <= size ? length : 0;
}
