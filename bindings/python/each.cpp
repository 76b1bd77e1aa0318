// each(command, iterable, *arguments): the list of what the command makes of each element.
#include "call.h"
#include "interpreter.h"

namespace vstring_python {
namespace {

std::size_t command_meant(PyObject* given) {
  std::size_t found = command_of(given);
  if (PyUnicode_Check(given)) {
    const char* const name = PyUnicode_AsUTF8AndSize(given, nullptr);
    if (name == nullptr) return kNoCommand;
    found = command_called(name);
  }
  if (found == kNoCommand) PyErr_Format(PyExc_TypeError, "each() takes a command, not %R", given);
  return found;
}

// The arguments of all the calls: those beside the element are converted once, and are kept.
class Arguments {
 public:
  Arguments() = default;
  ~Arguments();
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  bool fill(PyObject* const* given, Py_ssize_t n, PyObject* keywords);  // false with an exception
  Reference call(std::size_t command, PyObject* element);               // null with an exception

 private:
  Values values_;
  Values::Mark fixed_{};  // what of the values is not the element's
  std::vector<HostObject> objects_;
  std::vector<std::size_t> places_;  // of the element among the objects
  HostObject kept_ = 0;              // leads to the others
};

bool Arguments::fill(PyObject* const* given, Py_ssize_t n, PyObject* keywords) {
  const HeapLock lock;
  if (!lock.held()) return false;
  for (Py_ssize_t i = 0; i < n; ++i)
    if (given[i] == package.element) places_.push_back(static_cast<std::size_t>(i));
  if (places_.empty()) {
    places_.push_back(0);
    objects_.push_back(velmor_integer(heap, 0));
  }
  for (Py_ssize_t i = 0; i < n; ++i) {
    objects_.push_back(given[i] == package.element ? velmor_integer(heap, 0)
                                                   : values_.to_host(given[i]));
    if (objects_.back() == 0) return false;
  }
  if (!add_equations(values_, keywords, given + n, objects_)) return false;
  fixed_ = values_.mark();
  kept_ = velmor_list(heap, objects_.size(), objects_.data());
  if (kept_ == 0) return PyErr_NoMemory() != nullptr;
  velmor_root(heap, kept_);
  return true;
}

Arguments::~Arguments() {
  if (kept_ == 0) return;
  const HeapLock lock(HeapLock::Wait::kThroughSignals);
  if (lock.held()) velmor_unroot(heap, kept_);
}

Reference Arguments::call(std::size_t command, PyObject* element) {
  const HeapLock lock;
  if (!lock.held()) return {};
  values_.go_back(fixed_);
  Call call(values_);
  const HostObject object = values_.to_host(element);
  if (object == 0) return {};
  for (const std::size_t place : places_) objects_[place] = object;
  return call.run(command, objects_);
}

}  // namespace

PyObject* each(PyObject* /*module*/, PyObject* const* given, Py_ssize_t n, PyObject* keywords) {
  return guarded([&]() -> PyObject* {
    if (n < 2) {
      PyErr_SetString(PyExc_TypeError, "each() takes a command, an iterable, and more arguments");
      return nullptr;
    }
    const std::size_t command = command_meant(given[0]);
    if (command == kNoCommand) return nullptr;
    const Reference iterator(PyObject_GetIter(given[1]));
    Reference results(iterator ? PyList_New(0) : nullptr);
    Arguments arguments;
    if (!results || !arguments.fill(given + 2, n - 2, keywords)) return nullptr;
    while (const Reference element{PyIter_Next(iterator.get())}) {
      const Reference result = arguments.call(command, element.get());
      if (!result || PyList_Append(results.get(), result.get()) < 0) return nullptr;
    }
    return PyErr_Occurred() == nullptr ? results.release() : nullptr;
  });
}

}  // namespace vstring_python
