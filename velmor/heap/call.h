// A host at work: the call in progress, the way out of it, and what it reports.
//
// An error unwinds with longjmp, or with an exception if that is wanted, from an operation to the
// velmor_call in progress. What lies between
// are frames of the library and the edge of an operation; our own C++ frames are never jumped over:
// an operation does its work in a function that has returned (or thrown) before the jump, and an
// evaluator's failure comes back to host_eval_proc as a result.
#pragma once
#include <csetjmp>
#include <cstddef>
#include <string>

#include "heap.h"
#include "velmor_runtime.h"

namespace velmor {

using PrintCallback = void (*)(void* context, const char* text);
using InfoCallback = void (*)(void* context, std::int64_t level, const char* package,
                              const char* text);

void print_to_stdout(void* context, const char* text);
void inform_stderr(void* context, std::int64_t level, const char* package, const char* text);

}  // namespace velmor

struct VelmorHeap {
  velmor::Heap objects;

  std::jmp_buf* way_out = nullptr;  // of the call in progress; null while an evaluator runs
  bool throws = false;              // leaves a call by an exception instead
  int depth = 0;                    // of nested calls
  std::string error;
  std::string faults;

  VelmorEvaluator evaluator = nullptr;
  void* evaluator_context = nullptr;
  velmor::PrintCallback print = velmor::print_to_stdout;
  void* print_context = nullptr;
  velmor::InfoCallback inform = velmor::inform_stderr;
  void* inform_context = nullptr;

  std::size_t operations = 0;         // of those that can raise, so far
  std::size_t failing_operation = 0;  // the one to fail; 0 for none
};

namespace velmor {

// The heap that operations work on: that of the call in progress, else the one whose table was
// asked for last.
VelmorHeap& current_heap();
void make_current(VelmorHeap* heap);
void forget(const VelmorHeap* heap);

// Leaves the call in progress with the error that `heap` holds. Nothing with a destructor may be
// alive between here and the command.
[[noreturn]] void leave_call(VelmorHeap& heap);

// Notes a fault of the library and returns its text, "fault of the library: ...".
std::string report_fault(VelmorHeap& heap, const std::string& what);

// The value of `procedure` for the arguments, evaluated unless quoted. Throws std::runtime_error
// with the host's message when evaluation fails.
HostObject evaluate(VelmorHeap& heap, HostObject procedure, std::span<const HostObject> arguments);

}  // namespace velmor
