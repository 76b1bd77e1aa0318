// The words of the calendar, which are English whatever the locale, and what is read and written in
// the same form.
#pragma once
#include <algorithm>
#include <iterator>

namespace vstring::time {

inline constexpr const char* kWeekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                            "Thursday", "Friday", "Saturday"};
inline constexpr const char* kMonths[] = {"January",   "February", "March",    "April",
                                          "May",       "June",     "July",     "August",
                                          "September", "October",  "November", "December"};

struct CompositeRow {
  char conversion;
  const char* format;
};

// clang-format off
inline constexpr CompositeRow kComposites[] = {
    {'c', "%a %b %d %H:%M:%S %Y"},  // Thu Jan 01 00:00:00 1970
    {'D', "%m/%d/%y"},              // 01/01/70
    {'R', "%H:%M"},                 // 00:00
    {'r', "%I:%M:%S %p"},           // 12:00:00 AM
    {'T', "%H:%M:%S"},              // 00:00:00
    {'X', "%H:%M:%S"},              // 00:00:00
    {'x', "%m/%d/%y"},              // 01/01/70
};
// clang-format on

// The row of a conversion, or null.
template <typename Row, std::size_t N>
const Row* find_conversion(const Row (&rows)[N], char conversion) {
  const Row* const row = std::ranges::find(rows, conversion, &Row::conversion);
  return row != std::end(rows) ? row : nullptr;
}

}  // namespace vstring::time
