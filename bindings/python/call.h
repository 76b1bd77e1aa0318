// Calls of commands, and of the procedures that they evaluate.
#pragma once
#include <cstddef>
#include <exception>
#include <string>
#include <vector>

#include "c_locale.h"
#include "commands.h"
#include "reference.h"
#include "values.h"

namespace vstring_python {

// Entries from Python: the arguments, then the values of the keywords, as METH_FASTCALL has them.
PyObject* call_command(std::size_t command, PyObject* const* arguments, Py_ssize_t n,
                       PyObject* keywords);
PyObject* each(PyObject* module, PyObject* const* arguments, Py_ssize_t n, PyObject* keywords);

// Lets the heap evaluate procedures, and print, through Python.
void connect_heap();

// A Python exception that waits until the command has been left.
class Pending {
 public:
  explicit operator bool() const { return static_cast<bool>(type_); }
  void fetch() {
    PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    type_ = Reference(type);
    value_ = Reference(value);
    traceback_ = Reference(traceback);
  }
  void restore() { PyErr_Restore(type_.release(), value_.release(), traceback_.release()); }

 private:
  Reference type_, value_, traceback_;
};

// A command at work for Python, to which its procedures belong. Under the heap's lock.
class Call {
 public:
  explicit Call(Values& values);
  ~Call();
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  // The value of a command; null with an exception.
  Reference run(std::size_t command, const std::vector<HostObject>& arguments);

  static Call* innermost;

  HostObject evaluate(HostObject procedure, HostObject argseq);  // 0 with what failed noted
  void print(const char* text);
  void inform(const char* source, const char* text);

 private:
  HostObject run_inside(std::size_t command, HostObject argseq);
  HostObject call_back(PyObject* callable, HostObject argseq);
  void raise(std::size_t command) const;

  Values& values_;
  Call* outer_;
  locale_t locale_ = nullptr;  // of the thread, for what is not the library's
  Pending pending_;
  std::size_t failed_inside_ = kNoCommand;  // the command that failed as a procedure, and how
  std::string failure_inside_;
};

// Appends the values of a call's keywords; false with an exception.
bool add_equations(Values& values, PyObject* keywords, PyObject* const* given,
                   std::vector<HostObject>& arguments);

// Runs a step that may throw; null with an exception.
template <class Step>
PyObject* guarded(Step step) {
  try {
    return step();
  } catch (const std::exception&) {  // std::bad_alloc, std::length_error
    return PyErr_NoMemory();
  }
}

}  // namespace vstring_python
