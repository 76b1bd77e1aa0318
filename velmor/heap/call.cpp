#include "call.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "print.h"
#include "table.h"

namespace velmor {
namespace {

VelmorHeap* current = nullptr;

struct Raised {};  // what leaves a call that a heap raises from by an exception

// Makes `heap` current with `way_out` for its errors, and puts all back when done.
class CallScope {
 public:
  CallScope(VelmorHeap& heap, std::jmp_buf* way_out)
      : heap_(heap), outer_current_(current), outer_way_out_(heap.way_out) {
    current = &heap;
    heap.way_out = way_out;
    ++heap.depth;
  }
  ~CallScope() {
    --heap_.depth;
    heap_.way_out = outer_way_out_;
    current = outer_current_;
  }
  CallScope(const CallScope&) = delete;
  CallScope& operator=(const CallScope&) = delete;

 private:
  VelmorHeap& heap_;
  VelmorHeap* outer_current_;
  std::jmp_buf* outer_way_out_;
};

// ---- Evaluation ----

bool is_name(HostObject object, std::string_view text) {
  return tag_of(object) == HOST_TAG_NAME && text_view(object) == text;
}

// A name stands for its value, unless quoted.
HostObject value_of_argument(HostObject argument) {
  if (tag_of(argument) == kTagQuoted) return words(argument)[1];
  if (tag_of(argument) != HOST_TAG_NAME) return argument;
  const HostObject value = value_of_name(argument);
  if (value == 0) throw std::runtime_error(kDefinedByItself + print(argument));
  return value;
}

// convert(x, string): a string as it is, a name's text, else the printed form.
HostObject convert_to_string(Heap& objects, HostObject object) {
  if (tag_of(object) == HOST_TAG_STRING) return object;
  return objects.string(is_text(object) ? std::string(text_view(object)) : print(object));
}

HostObject call_evaluator(VelmorHeap& heap, HostObject procedure, HostObject argseq) {
  if (heap.evaluator == nullptr) throw std::runtime_error(print(procedure) + " is not a procedure");
  // An error of the evaluator's own must not jump over its frames.
  const CallScope scope(heap, nullptr);
  heap.error.clear();
  HostObject result = 0;
  if (heap.evaluator(heap.evaluator_context, &heap, procedure, argseq, &result) != 0 && result != 0)
    return result;
  throw std::runtime_error(heap.error.empty() ? "evaluation failed" : heap.error);
}

}  // namespace

void print_to_stdout(void* /*context*/, const char* text) { std::fputs(text, stdout); }

void inform_stderr(void* /*context*/, std::int64_t /*level*/, const char* package,
                   const char* text) {
  std::fprintf(stderr, "%s: %s\n", package, text);
}

VelmorHeap& current_heap() {
  if (current == nullptr) {
    std::fputs("velmor: an operation of the table was called while no heap is in use\n", stderr);
    std::abort();
  }
  return *current;
}

void make_current(VelmorHeap* heap) { current = heap; }

void forget(const VelmorHeap* heap) {
  if (current == heap) current = nullptr;
}

void leave_call(VelmorHeap& heap) {
  if (heap.way_out == nullptr) {
    std::fprintf(stderr, "velmor: error outside of a call: %s\n", heap.error.c_str());
    std::abort();
  }
  if (heap.throws) throw Raised();
  std::longjmp(*heap.way_out, 1);
}

std::string report_fault(VelmorHeap& heap, const std::string& what) {
  std::string text = "fault of the library: " + what;
  heap.faults += text + "\n";
  return text;
}

HostObject evaluate(VelmorHeap& heap, HostObject procedure, std::span<const HostObject> arguments) {
  std::vector<HostObject> values;
  for (const HostObject argument : arguments) values.push_back(value_of_argument(argument));
  if (is_name(procedure, "convert") && values.size() == 2 && is_name(values[1], "string"))
    return convert_to_string(heap.objects, values[0]);
  if (is_name(procedure, "sprintf") && values.size() == 2 && is_text(values[0]) &&
      text_view(values[0]) == "%a")
    return heap.objects.string(print(values[1]));
  return call_evaluator(heap, procedure, heap.objects.sequence(values));
}

}  // namespace velmor

int velmor_call(VelmorHeap* heap, VelmorCommand command, HostObject argseq, HostObject* result) {
  std::jmp_buf way_out;
  const velmor::CallScope scope(*heap, &way_out);
  heap->error.clear();
  if (setjmp(way_out) != 0) return 0;
  try {
    const HostObject value = command(&velmor::table(), argseq);
    if (value == 0) {
      heap->error = velmor::report_fault(*heap, "a command returned no object");
      return 0;
    }
    if (result != nullptr) *result = value;
    return 1;
  } catch (const velmor::Raised&) {
    return 0;
  }
}
