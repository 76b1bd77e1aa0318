// The library at run time.
#pragma once
#include <filesystem>
#include <string>

#include "heap/velmor_runtime.h"

namespace velmor {

class Library {
 public:
  // Loads `path` if it is not empty; else what the environment variable VSTRING_LIBRARY names; else
  // libvstring.so.5 beside this program, in the library directory of its installation, in its
  // build tree, or wherever the system finds it. Throws std::runtime_error.
  explicit Library(const std::string& path);

  // The entry point with this name, or null.
  VelmorCommand resolve(const std::string& entry_point) const;

  // The file that was loaded.
  std::filesystem::path path() const;

 private:
  void* handle_;  // never closed: the library's state lasts as long as the process
};

}  // namespace velmor
