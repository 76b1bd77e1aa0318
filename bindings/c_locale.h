// The library asks for the locale "C" when it formats a time or compiles an expression, and hosts
// of its own may let it. An adapter lives in somebody else's process, whose locale is not its to
// change: it gives the library that locale for its own thread, and setlocale, as the library sees
// it, does nothing more.
#pragma once
#include <locale.h>

namespace vstring_bindings {

locale_t c_locale();

// A locale for this thread while the scope lasts.
class ThreadLocale {
 public:
  explicit ThreadLocale(locale_t locale) : before_(uselocale(locale)) {}
  ~ThreadLocale() { uselocale(before_); }
  ThreadLocale(const ThreadLocale&) = delete;
  ThreadLocale& operator=(const ThreadLocale&) = delete;

  locale_t before() const { return before_; }

 private:
  locale_t before_;
};

}  // namespace vstring_bindings
