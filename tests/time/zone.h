// A local zone for a while.
#pragma once
#include <cstdlib>
#include <ctime>

namespace vstring_test {

// The TZ variable has this value, or none, during its life.
class Zone {
 public:
  explicit Zone(const char* name) { set(name); }
  ~Zone() { set(nullptr); }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;

 private:
  static void set(const char* name) {
    name != nullptr ? setenv("TZ", name, 1) : unsetenv("TZ");
    tzset();
  }
};

}  // namespace vstring_test
