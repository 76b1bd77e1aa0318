#include "time/parse_time.h"

#include <algorithm>
#include <chrono>
#include <string_view>

#include "charclass/case_map.h"
#include "charclass/class_table.h"
#include "time/calendar.h"
#include "time/local_time.h"

namespace vstring::time {
namespace {

constexpr int kUnset = -1;

struct Fields {
  int year = 1970;
  int month = kUnset;        // from 1
  int day = kUnset;          // of the month
  int day_of_year = kUnset;  // from 1
  int weekday = kUnset;      // 0 is Sunday
  int hour = 0;
  int minute = 0;
  int second = 0;
  bool is_half_day = false;  // the hour is one of twelve
  bool is_afternoon = false;
  std::optional<int> seconds_ahead;  // of UTC
};

struct NumberRow {
  char conversion;
  signed char digits;
  short least;
  int most;
  int Fields::*field;
};

// clang-format off
constexpr NumberRow kNumbers[] = {
    {'Y', 4, 0, 9999, &Fields::year},
    {'y', 2, 0, 99, &Fields::year},
    {'m', 2, 1, 12, &Fields::month},
    {'d', 2, 1, 31, &Fields::day},
    {'e', 2, 1, 31, &Fields::day},
    {'j', 3, 1, 366, &Fields::day_of_year},
    {'H', 2, 0, 23, &Fields::hour},
    {'k', 2, 0, 23, &Fields::hour},
    {'I', 2, 1, 12, &Fields::hour},
    {'l', 2, 1, 12, &Fields::hour},
    {'M', 2, 0, 59, &Fields::minute},
    {'S', 2, 0, 59, &Fields::second},
};
// clang-format on

// What neither table has.
constexpr std::string_view kOthers = "%ntaAbBhpzv";

bool is_known(char conversion) {
  return find_conversion(kNumbers, conversion) != nullptr ||
         find_conversion(kComposites, conversion) != nullptr ||
         kOthers.find(conversion) != kOthers.npos;
}

bool is_space(Byte c) { return charclass::is(c, charclass::kSpace); }
bool is_blank(Byte c) { return c == ' '; }
bool is_digit(Byte c) { return c >= '0' && c <= '9'; }

// Reads a text from the left. What does not match answers false, and then nothing else is asked.
class Reader {
 public:
  explicit Reader(Bytes text) : rest_(text) {}

  // A composite conversion has a short format of its own, so this nests once.
  bool match(Bytes format) {
    for (std::size_t i = 0; i < format.size(); ++i) {
      if (format[i] == '%') {
        if (!convert(static_cast<char>(format[++i]))) return false;
      } else if (is_space(format[i])) {
        skip(is_space);
      } else if (!take(format[i])) {
        return false;
      }
    }
    return true;
  }

  bool is_at_end() const { return rest_.empty(); }
  const Fields& fields() const { return fields_; }

 private:
  bool convert(char conversion) {
    if (const NumberRow* const row = find_conversion(kNumbers, conversion)) return number(*row);
    if (const CompositeRow* const row = find_conversion(kComposites, conversion)) {
      return match(bytes_of(row->format));
    }
    switch (conversion) {
      case 'n':
      case 't':
        skip(is_space);
        return true;
      case 'a':
      case 'A':
        return name(kWeekdays, 0, fields_.weekday);
      case 'b':
      case 'B':
      case 'h':
        return name(kMonths, 1, fields_.month);
      case 'p':
        fields_.is_afternoon = take_word("PM");
        return fields_.is_afternoon || take_word("AM");
      case 'v':
        return match(bytes_of("%e-%b-%Y"));
      case 'z':
        return zone();
      default:
        return take('%');
    }
  }

  bool number(const NumberRow& row) {
    const char c = row.conversion;
    if (c == 'e' || c == 'k' || c == 'l') skip(is_blank);
    int& value = fields_.*row.field;
    if (digits(row.digits, value) == 0 || value < row.least || value > row.most) return false;
    if (c == 'y') value += value < 69 ? 2000 : 1900;
    if (row.field == &Fields::hour) fields_.is_half_day = c == 'I' || c == 'l';
    return true;
  }

  template <std::size_t N>
  bool name(const char* const (&names)[N], int first, int& value) {
    for (std::size_t i = 0; i < N; ++i) {
      const std::string_view whole = names[i];
      if (!take_word(whole) && !take_word(whole.substr(0, 3))) continue;
      value = first + static_cast<int>(i);
      return true;
    }
    return false;
  }

  bool zone() {
    fields_.seconds_ahead = 0;
    if (take_word("Z")) return true;
    const bool is_behind = take('-');
    int hours = 0;
    if ((!is_behind && !take('+')) || digits(2, hours) != 2 || hours > 23) return false;
    int minutes = 0;
    const Bytes behind_hours = rest_;
    take(':');
    if (digits(2, minutes) != 2) {
      rest_ = behind_hours;
      minutes = 0;
    }
    if (minutes > 59) return false;
    fields_.seconds_ahead = (is_behind ? -60 : 60) * (60 * hours + minutes);
    return true;
  }

  // Reads as many digits as there are, up to `most`, and returns how many.
  int digits(int most, int& value) {
    int count = 0;
    value = 0;
    for (; count < most && !rest_.empty() && is_digit(rest_[0]); ++count) {
      value = 10 * value + (rest_[0] - '0');
      rest_ = rest_.subspan(1);
    }
    return count;
  }

  // Takes the word in any case of letters.
  bool take_word(std::string_view word) {
    if (rest_.size() < word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
      const auto wanted = static_cast<Byte>(word[i]);
      if (charclass::to_lower(rest_[i]) != charclass::to_lower(wanted)) return false;
    }
    rest_ = rest_.subspan(word.size());
    return true;
  }

  bool take(Byte c) {
    if (rest_.empty() || rest_[0] != c) return false;
    rest_ = rest_.subspan(1);
    return true;
  }

  void skip(bool (*is_skipped)(Byte)) {
    while (!rest_.empty() && is_skipped(rest_[0])) rest_ = rest_.subspan(1);
  }

  Bytes rest_;
  Fields fields_;
};

// The day that the fields name; nothing when there is none, or when they contradict each other.
std::optional<std::chrono::sys_days> date_of(const Fields& fields) {
  using namespace std::chrono;  // NOLINT: its names are those of the calendar
  const auto agrees = [](int field, auto value) {
    return field == kUnset || static_cast<unsigned>(field) == static_cast<unsigned>(value);
  };
  const auto number = [](int field) { return static_cast<unsigned>(field == kUnset ? 1 : field); };
  const year of_year(fields.year);
  year_month_day date(of_year, month(number(fields.month)), day(number(fields.day)));
  if (fields.day_of_year != kUnset) {
    date = sys_days(of_year / January / 1) + days(fields.day_of_year - 1);
    if (date.year() != of_year || !agrees(fields.month, date.month()) ||
        !agrees(fields.day, date.day())) {
      return std::nullopt;
    }
  }
  if (!date.ok() || !agrees(fields.weekday, weekday(date).c_encoding())) return std::nullopt;
  return sys_days(date);
}

int hour_of(const Fields& fields) {
  return fields.is_half_day ? fields.hour % 12 + (fields.is_afternoon ? 12 : 0) : fields.hour;
}

}  // namespace

Bytes unknown_conversion(Bytes format) {
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format[i] != '%') continue;
    if (i + 1 == format.size() || !is_known(static_cast<char>(format[i + 1]))) {
      return format.subspan(i, std::min<std::size_t>(2, format.size() - i));
    }
    ++i;
  }
  return {};
}

std::optional<std::int64_t> parse_time(Bytes text, Bytes format) {
  Reader reader(text);
  if (!reader.match(format) || !reader.is_at_end()) return std::nullopt;
  const Fields& fields = reader.fields();
  const std::optional<std::chrono::sys_days> date = date_of(fields);
  if (!date) return std::nullopt;
  const std::chrono::sys_seconds time = *date + std::chrono::hours(hour_of(fields)) +
                                        std::chrono::minutes(fields.minute) +
                                        std::chrono::seconds(fields.second);
  const std::int64_t clock = time.time_since_epoch().count();
  if (fields.seconds_ahead) return clock - *fields.seconds_ahead;
  return earliest_local(clock);
}

}  // namespace vstring::time
