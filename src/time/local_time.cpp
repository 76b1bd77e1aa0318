#include "time/local_time.h"

#include <chrono>
#include <clocale>
#include <ctime>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "runtime/growing_text.h"
#include "time/format_time.h"

namespace vstring::time {
namespace {

// LC_TIME is "C" during its life. The name of the locale before it is copied, as the next call of
// setlocale ends the life of the one that libc gives out.
class PlainTimeLocale {
 public:
  PlainTimeLocale() : saved_(short_name_, sizeof short_name_) {
    const char* const name = std::setlocale(LC_TIME, nullptr);
    is_set_ = saved_.append(bytes_of(name));
    if (is_set_) std::setlocale(LC_TIME, "C");
  }
  ~PlainTimeLocale() {
    if (is_set_) std::setlocale(LC_TIME, saved_.terminated());
    saved_.free();
  }
  PlainTimeLocale(const PlainTimeLocale&) = delete;
  PlainTimeLocale& operator=(const PlainTimeLocale&) = delete;

  bool is_set() const { return is_set_; }

 private:
  Byte short_name_[128];
  GrowingText saved_;
  bool is_set_ = false;
};

// What clocks of the local zone show at `when`, in seconds as if it were UTC; nothing in a leap
// second.
std::optional<std::int64_t> clock_at(std::int64_t when) {
  const std::time_t time_asked_for = when;
  std::tm time;
  if (localtime_r(&time_asked_for, &time) == nullptr || time.tm_sec > 59) return std::nullopt;
  using namespace std::chrono;  // NOLINT: its names are those of the calendar
  const sys_days date = year(time.tm_year + 1900) / (time.tm_mon + 1) / time.tm_mday;
  const sys_seconds clock =
      date + hours(time.tm_hour) + minutes(time.tm_min) + seconds(time.tm_sec);
  return clock.time_since_epoch().count();
}

// No zone is further away from UTC: POSIX has 24:59:59 and an hour more in summer; leap seconds,
// where they are counted, are some more.
constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kFarthest = 27 * kHour;

}  // namespace

std::optional<std::int64_t> earliest_local(std::int64_t clock) {
  tzset();  // localtime_r need not do so
  std::optional<std::int64_t> earliest;
  std::int64_t last_ahead = kFarthest;
  for (std::int64_t near = clock - kFarthest; near <= clock + kFarthest; near += kHour) {
    const std::optional<std::int64_t> shown = clock_at(near);
    if (!shown || *shown - near == last_ahead) continue;
    last_ahead = *shown - near;
    const std::int64_t when = clock - last_ahead;
    if (clock_at(when) == clock && (!earliest || when < *earliest)) earliest = when;
  }
  return earliest;
}

Result<const char*> format_local(std::int64_t when, const char* format, char* buffer,
                                 std::size_t size, HeldArray<char>& block) {
  const PlainTimeLocale locale;
  if (!locale.is_set()) return Status::out_of_memory;
  const std::time_t seconds = when;
  const std::tm* const broken_down = std::localtime(&seconds);
  if (broken_down == nullptr) return Status::refused;  // a year beyond int
  if (my_strftime(buffer, size, format, broken_down) != 0) return buffer;
  const std::size_t length = format_time(buffer, size, format, *broken_down);
  if (!block.resize(length)) return Status::out_of_memory;
  format_time(block.data(), length, format, *broken_down);
  return block.data();
}

}  // namespace vstring::time
