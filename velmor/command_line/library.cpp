#include "command_line/library.h"

#include <dlfcn.h>

#include <cstdlib>
#include <stdexcept>

namespace velmor {
namespace {

constexpr const char* kSoname = "libvstring.so.5";

std::string file_to_load(const std::string& path) {
  if (!path.empty()) return path;
  if (const char* named = std::getenv("VSTRING_LIBRARY"); named != nullptr && *named != '\0')
    return named;
  std::error_code error;
  const auto here = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  for (const char* directory : {".", "../lib", VELMOR_INSTALLED_LIBRARIES, "../src"}) {
    const auto candidate = here / directory / kSoname;
    if (!error && std::filesystem::exists(candidate, error)) return candidate.lexically_normal();
  }
  return kSoname;
}

}  // namespace

Library::Library(const std::string& path) {
  std::string file = file_to_load(path);
  // A name without a slash would be looked for in the system's directories only.
  if (!path.empty() && path.find('/') == std::string::npos) file.insert(0, "./");
  handle_ = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle_ == nullptr)
    throw std::runtime_error(std::string("cannot load vstring: ") + dlerror());
  if (dlsym(handle_, "vstringVersion") == nullptr)
    throw std::runtime_error("cannot load vstring: " + file + " is another library");
}

VelmorCommand Library::resolve(const std::string& entry_point) const {
  return reinterpret_cast<VelmorCommand>(dlsym(handle_, entry_point.c_str()));
}

std::filesystem::path Library::path() const {
  Dl_info info;
  if (dladdr(dlsym(handle_, "vstringVersion"), &info) == 0) return {};
  return info.dli_fname;
}

}  // namespace velmor
