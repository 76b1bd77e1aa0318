#include "support/session.h"

#include <dlfcn.h>

namespace vstring_test {

velmor::Session& session() {
  static velmor::Session* const shared = [] {
    auto* const made = new velmor::Session([](const std::string& entry_point) {
      return reinterpret_cast<VelmorCommand>(dlsym(RTLD_DEFAULT, entry_point.c_str()));
    });
    made->symbolic = true;
    return made;
  }();
  return *shared;
}

std::string evaluate(const std::string& call) { return session().evaluate(call).text; }

std::string quoted(const std::string& bytes) {
  return session().print(velmor_string_n(session().heap(), bytes.data(), bytes.size()));
}

}  // namespace vstring_test
