#include "time/local_time.h"

#include <clocale>
#include <ctime>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "runtime/growing_text.h"

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

}  // namespace

Result<const char*> format_local(std::int64_t when, const char* format, char* buffer,
                                 std::size_t size, HeldArray<char>& block) {
  const PlainTimeLocale locale;
  if (!locale.is_set()) return Status::out_of_memory;
  const std::time_t seconds = when;
  const std::tm* const broken_down = std::localtime(&seconds);
  if (broken_down == nullptr) return Status::refused;  // a year beyond int
  if (my_strftime(buffer, size, format, broken_down) != 0) return buffer;
  do {
    size *= 2;
    if (!block.resize(size)) {
      block.free();
      return Status::out_of_memory;
    }
  } while (my_strftime(block.data(), size, format, broken_down) == 0);
  return block.data();
}

}  // namespace vstring::time
