// Writes a manual page of the library to standard output.
// Usage: vstring_manual vstring | vstring-host HEADER | vstring-FAMILY LIBRARY
#include <dlfcn.h>

#include <fstream>
#include <iostream>
#include <string_view>

#include "manual/host.h"
#include "manual/pages.h"

namespace {

int fail(const std::string& what) {
  std::cerr << "vstring_manual: " << what << '\n';
  return 1;
}

int write_family(const velmor::lexiva::Family& family, const char* library) {
  void* const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);  // until the program ends
  if (handle == nullptr) return fail(dlerror());
  velmor::Session session([&](const std::string& entry_point) {
    return reinterpret_cast<VelmorCommand>(dlsym(handle, entry_point.c_str()));
  });
  velmor::write_family(std::cout, family, session);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view page = argc > 1 ? argv[1] : "";
  if (page == "vstring") {
    velmor::write_overview(std::cout);
    return 0;
  }
  if (argc != 3) return fail("which page, of which file?");
  if (page == "vstring-host") {
    std::ifstream header(argv[2]);
    if (!header) return fail(std::string("cannot read ") + argv[2]);
    velmor::write_host_page(std::cout, header);
    return 0;
  }
  for (const velmor::lexiva::Family& family : velmor::lexiva::families())
    if (family.listed && page == std::string("vstring-") + family.page)
      return write_family(family, argv[2]);
  return fail("no page " + std::string(page));
}
