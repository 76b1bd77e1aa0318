// Python's global lock (the GIL), and the lock of the one heap that all threads share.
//
// The library runs one call at a time, and a call that waits for a procedure is still running: the
// heap's lock is held until the outermost call of its thread ends. Whoever holds the GIL never
// waits for it, so a procedure, which needs the GIL, always gets on.
#pragma once
#include "reference.h"

namespace vstring_python {

// Holds the heap's lock. Nests within a thread. Made and destroyed under the GIL.
class HeapLock {
 public:
  enum class Wait { kUntilSignal, kThroughSignals };
  // Not held, with a Python exception, when a signal's handler raises one during the wait.
  explicit HeapLock(Wait wait = Wait::kUntilSignal);
  ~HeapLock();
  HeapLock(const HeapLock&) = delete;
  HeapLock& operator=(const HeapLock&) = delete;

  bool held() const { return held_; }
  static bool outermost();  // whether no other call is in progress

 private:
  bool held_;
};

bool lock_heap(HeapLock::Wait wait);  // false with a Python exception
void unlock_heap();

// Lets other threads run Python while this one, which holds the heap's lock, is in the library.
class WithoutGil {
 public:
  explicit WithoutGil(bool wanted);
  ~WithoutGil();
  WithoutGil(const WithoutGil&) = delete;
  WithoutGil& operator=(const WithoutGil&) = delete;
};

// Takes the GIL back for a while, if it was given away.
class WithGil {
 public:
  WithGil();
  ~WithGil();
  WithGil(const WithGil&) = delete;
  WithGil& operator=(const WithGil&) = delete;

 private:
  bool taken_;
};

// PyObject_Call, for a caller who holds the heap's lock.
PyObject* call_python(PyObject* callable, PyObject* arguments);

// Whether so little is left of this thread's stack that nothing should be called any more.
bool stack_is_short();

}  // namespace vstring_python
