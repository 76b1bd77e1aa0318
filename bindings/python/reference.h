// Owned references to Python's objects.
#pragma once
#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <utility>

namespace vstring_python {

class Reference {
 public:
  Reference() = default;
  explicit Reference(PyObject* owned) : object_(owned) {}
  static Reference to(PyObject* borrowed) {
    Py_XINCREF(borrowed);
    return Reference(borrowed);
  }
  Reference(Reference&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Reference& operator=(Reference&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;
  ~Reference() { Py_XDECREF(object_); }

  PyObject* get() const { return object_; }
  PyObject* release() { return std::exchange(object_, nullptr); }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  PyObject* object_ = nullptr;
};

}  // namespace vstring_python
