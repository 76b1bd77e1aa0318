#include "time/local_time.h"

#include <clocale>
#include <ctime>

#include "bytes/bytes.h"
#include "host/vstring.h"

namespace vstring::time {
namespace {

// LC_TIME is "C" during its life. The name of the locale before it is copied, as the next call of
// setlocale ends the life of the one that libc gives out.
class PlainTimeLocale {
 public:
  PlainTimeLocale() {
    const char* const name = std::setlocale(LC_TIME, nullptr);
    if (saved_.append({name, std::strlen(name) + 1})) std::setlocale(LC_TIME, "C");
  }
  ~PlainTimeLocale() {
    if (is_set()) std::setlocale(LC_TIME, saved_.data());
  }
  PlainTimeLocale(const PlainTimeLocale&) = delete;
  PlainTimeLocale& operator=(const PlainTimeLocale&) = delete;

  bool is_set() const { return !saved_.empty(); }

 private:
  Buffer<char> saved_;
};

}  // namespace

Result<const char*> format_local(std::int64_t when, const char* format, char* scratch,
                                 std::size_t size, HeldArray<char>& block) {
  const PlainTimeLocale locale;
  if (!locale.is_set()) return Status::out_of_memory;
  const std::time_t seconds = when;
  const std::tm* const broken_down = std::localtime(&seconds);
  if (broken_down == nullptr) return Status::refused;  // a year beyond int
  if (my_strftime(scratch, size, format, broken_down) != 0) return scratch;
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
