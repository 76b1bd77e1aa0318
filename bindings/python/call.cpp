#include "call.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include "heap/object.h"
#include "interpreter.h"

namespace vstring_python {
namespace {

using vstring_bindings::ThreadLocale;

// From so many bytes of text on, a call is likely to last longer than it takes to hand the GIL
// over and back.
constexpr std::size_t kLongText = 4096;

// Less garbage than this is not worth a collection.
constexpr std::size_t kLeastObjects = 10'000;
constexpr std::size_t kLeastBytes = std::size_t{16} << 20;

std::size_t collect_at_objects = kLeastObjects;
std::size_t collect_at_bytes = kLeastBytes;

void collect_garbage() {
  if (velmor_object_count(heap) < collect_at_objects &&
      velmor_object_bytes(heap) < collect_at_bytes)
    return;
  velmor_collect(heap);
  collect_at_objects = std::max(kLeastObjects, 2 * velmor_object_count(heap));
  collect_at_bytes = std::max(kLeastBytes, 2 * velmor_object_bytes(heap));
}

}  // namespace

Call* Call::innermost = nullptr;

Call::Call(Values& values) : values_(values), outer_(innermost) { innermost = this; }

Call::~Call() {
  innermost = outer_;
  if (HeapLock::outermost()) collect_garbage();
}

Reference Call::run(std::size_t index, const std::vector<HostObject>& arguments) {
  const HostObject argseq = velmor_sequence(heap, arguments.size(), arguments.data());
  if (argseq == 0) return Reference(PyErr_NoMemory());
  HostObject result = 0;
  bool done = false;
  {
    const ThreadLocale library(vstring_bindings::c_locale());
    locale_ = library.before();
    const WithoutGil without(values_.size() >= kLongText);
    done = velmor_call(heap, command(index).entry, argseq, &result) != 0;
  }
  Reference value;
  if (pending_)
    pending_.restore();
  else if (done)
    value = values_.to_python(result);
  else
    raise(index);
  if (!values_.has_names()) return value;
  Pending failure;
  if (!value) failure.fetch();
  const bool delivered = values_.deliver_names();
  if (failure) failure.restore();
  return delivered ? std::move(value) : Reference();
}

// A failure of a command that ran as a procedure is told as its own.
void Call::raise(std::size_t index) const {
  const std::string_view message = velmor_error(heap);
  if (message == "out of memory") {
    PyErr_NoMemory();
    return;
  }
  if (failed_inside_ != kNoCommand && message == failure_inside_) index = failed_inside_;
  const Reference text(PyUnicode_DecodeUTF8(message.data(), static_cast<Py_ssize_t>(message.size()),
                                            "surrogateescape"));
  const Reference name(PyUnicode_FromString(command(index).name));
  const Reference error(
      text && name ? PyObject_CallFunctionObjArgs(package.error, text.get(), name.get(), nullptr)
                   : nullptr);
  if (error) PyErr_SetObject(package.error, error.get());
}

HostObject Call::evaluate(HostObject procedure, HostObject argseq) {
  if (velmor_tag(procedure) == velmor::kTagProcedure) {
    const std::int64_t data = velmor_to_integer(velmor_procedure_data(procedure));
    return data <= 0 ? run_inside(static_cast<std::size_t>(-data), argseq)
                     : call_back(std::bit_cast<PyObject*>(data), argseq);
  }
  const char* const name = velmor_text(procedure);
  const std::size_t named = name != nullptr ? command_called(name) : kNoCommand;
  if (named != kNoCommand) return run_inside(named, argseq);
  const std::unique_ptr<char, decltype(&std::free)> printed(velmor_print(heap, procedure),
                                                            &std::free);
  if (printed == nullptr) throw std::bad_alloc();
  velmor_fail(heap, ("no command " + std::string(printed.get())).c_str());
  return 0;
}

HostObject Call::run_inside(std::size_t index, HostObject argseq) {
  HostObject result = 0;
  if (velmor_call(heap, command(index).entry, argseq, &result) == 0) {
    failed_inside_ = index;
    failure_inside_ = velmor_error(heap);
    return 0;
  }
  return velmor_tag(result) == HOST_TAG_SEQUENCE && velmor_size(result) == 1
             ? velmor_element(result, 1)
             : result;
}

HostObject Call::call_back(PyObject* callable, HostObject argseq) {
  const WithGil with;
  const ThreadLocale own(locale_);
  const auto attempt = [&]() -> HostObject {
    if (PyErr_CheckSignals() < 0) return 0;
    if (stack_is_short()) {
      PyErr_SetString(PyExc_RecursionError, "procedures call each other too deeply");
      return 0;
    }
    const std::size_t n = velmor_size(argseq);
    const Reference arguments(PyTuple_New(static_cast<Py_ssize_t>(n)));
    if (!arguments) return 0;
    for (std::size_t i = 0; i < n; ++i) {
      Reference argument = values_.to_python(velmor_element(argseq, i + 1));
      if (!argument) return 0;
      PyTuple_SetItem(arguments.get(), static_cast<Py_ssize_t>(i), argument.release());
    }
    const Reference value(call_python(callable, arguments.get()));
    return value ? values_.returned(value.get()) : 0;
  };
  const HostObject result = attempt();
  if (result == 0) {
    pending_.fetch();
    velmor_fail(heap, "a Python exception");
  }
  return result;
}

void Call::print(const char* text) {
  const WithGil with;
  const ThreadLocale own(locale_);
  PyObject* const file = PySys_GetObject("stdout");
  if (pending_ || file == nullptr || file == Py_None) return;
  if (PyFile_WriteString(text, file) < 0) pending_.fetch();
}

// What a host tells those who want to know goes to the logger "vstring".
void Call::inform(const char* source, const char* text) {
  const WithGil with;
  const ThreadLocale own(locale_);
  if (pending_) return;
  const Reference logging(PyImport_ImportModule("logging"));
  const Reference logger(logging ? PyObject_CallMethod(logging.get(), "getLogger", "s", "vstring")
                                 : nullptr);
  const Reference logged(
      logger ? PyObject_CallMethod(logger.get(), "info", "sss", "%s: %s", source, text) : nullptr);
  if (!logged) pending_.fetch();
}

// Appends the values of a call's keywords; false with an exception.
bool add_equations(Values& values, PyObject* keywords, PyObject* const* given,
                   std::vector<HostObject>& arguments) {
  const Py_ssize_t n = keywords == nullptr ? 0 : PyTuple_Size(keywords);
  for (Py_ssize_t i = 0; i < n; ++i) {
    arguments.push_back(values.equation(PyTuple_GetItem(keywords, i), given[i]));
    if (arguments.back() == 0) return false;
  }
  return true;
}

void connect_heap() {
  velmor_set_evaluator(
      heap,
      [](void*, VelmorHeap*, HostObject procedure, HostObject argseq, HostObject* result) {
        *result = Call::innermost->evaluate(procedure, argseq);
        return *result != 0 ? 1 : 0;
      },
      nullptr);
  velmor_set_output(
      heap, [](void*, const char* text) { Call::innermost->print(text); }, nullptr);
  velmor_set_userinfo(
      heap,
      [](void*, std::int64_t, const char* source, const char* text) {
        Call::innermost->inform(source, text);
      },
      nullptr);
}

PyObject* call_command(std::size_t index, PyObject* const* given, Py_ssize_t n,
                       PyObject* keywords) {
  return guarded([&]() -> PyObject* {
    const HeapLock lock;
    if (!lock.held()) return nullptr;
    Values values;
    Call call(values);
    std::vector<HostObject> arguments;
    arguments.reserve(static_cast<std::size_t>(n));
    for (Py_ssize_t i = 0; i < n; ++i) {
      arguments.push_back(values.to_host(given[i]));
      if (arguments.back() == 0) return nullptr;
    }
    if (!add_equations(values, keywords, given + n, arguments)) return nullptr;
    return call.run(index, arguments).release();
  });
}

}  // namespace vstring_python
