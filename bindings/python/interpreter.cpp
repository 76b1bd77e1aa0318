#include "interpreter.h"

#include <cxxabi.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace vstring_python {
namespace {

// All but `semaphore`, which guards the heap, are guarded by the GIL.
PyThread_type_lock semaphore = PyThread_allocate_lock();
unsigned long owner = 0;
int depth = 0;           // of the owner's calls
bool abandoned = false;  // by a thread that ended within a call

PyThreadState* set_aside = nullptr;  // of the owner while it is without the GIL

// An interpreter that shuts down ends a daemon thread when it asks for the GIL, with an exception
// that runs through all frames. Nothing may be unwound without the GIL, so the thread stops here;
// later interpreters do the same by themselves.
template <class Step>
auto unless_ended(Step step) {
  try {
    return step();
  } catch (const abi::__forced_unwind&) {
    abandoned = true;
    PyThread_release_lock(semaphore);
    for (;;) pause();
  }
}

void take_gil(PyThreadState* state) {
  unless_ended([=] { PyEval_RestoreThread(state); });
}

// The wait may end at a signal, for whose handler the GIL is needed.
bool wait_for_semaphore(bool until_signal) {
  for (;;) {
    PyThreadState* const state = PyEval_SaveThread();
    const PyLockStatus status = PyThread_acquire_lock_timed(semaphore, -1, until_signal ? 1 : 0);
    if (status == PY_LOCK_ACQUIRED) {
      take_gil(state);
      return true;
    }
    PyEval_RestoreThread(state);
    if (PyErr_CheckSignals() < 0) return false;
  }
}

}  // namespace

bool lock_heap(HeapLock::Wait wait) {
  const unsigned long here = PyThread_get_thread_ident();
  if (owner == here && depth > 0) {
    ++depth;
    return true;
  }
  if (PyThread_acquire_lock(semaphore, NOWAIT_LOCK) == 0 &&
      !wait_for_semaphore(wait == HeapLock::Wait::kUntilSignal))
    return false;
  if (abandoned) {
    PyThread_release_lock(semaphore);
    PyErr_SetString(PyExc_RuntimeError, "the interpreter has ended a thread within a call");
    return false;
  }
  owner = here;
  depth = 1;
  return true;
}

void unlock_heap() {
  if (--depth == 0) PyThread_release_lock(semaphore);
}

HeapLock::HeapLock(Wait wait) : held_(lock_heap(wait)) {}
HeapLock::~HeapLock() {
  if (held_) unlock_heap();
}
bool HeapLock::outermost() { return depth == 1; }

WithoutGil::WithoutGil(bool wanted) {
  if (wanted) set_aside = PyEval_SaveThread();
}

WithoutGil::~WithoutGil() {
  if (set_aside != nullptr) take_gil(std::exchange(set_aside, nullptr));
}

WithGil::WithGil() : taken_(set_aside != nullptr) {
  if (taken_) take_gil(std::exchange(set_aside, nullptr));
}

WithGil::~WithGil() {
  if (taken_) set_aside = PyEval_SaveThread();
}

PyObject* call_python(PyObject* callable, PyObject* arguments) {
  return unless_ended([=] { return PyObject_Call(callable, arguments, nullptr); });
}

bool stack_is_short() {
  constexpr std::size_t kEnough = std::size_t{1} << 20;
  thread_local std::uintptr_t least = 0;
  if (least == 0) {
    pthread_attr_t attributes;
    void* lowest = nullptr;
    std::size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return false;
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    least = reinterpret_cast<std::uintptr_t>(lowest) + std::min(kEnough, size / 4);
  }
  return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < least;
}

}  // namespace vstring_python
