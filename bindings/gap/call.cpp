// SPDX-License-Identifier: GPL-2.0-or-later
// GAP errors are longjmps, and so are those of the host's heap. Neither may pass the frames of the
// other: a GAP error in a function that a command calls is caught before it reaches the command,
// which is left as by any other error, and then thrown on. GAP errors of our own are raised where
// no destructor waits.
#include "call.h"

#include <sys/resource.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

#include "bindings.h"
#include "c_locale.h"
#include "heap/object.h"
#include "heap/print.h"
#include "values.h"

namespace vstring_gap {
namespace {

using vstring_bindings::ThreadLocale;

VelmorHeap* heap;
locale_t locale;            // of GAP and its functions
int depth;                  // of calls within each other
bool gap_error_is_pending;  // a function has been left by a GAP error, which has been reported
std::string message;        // of the last error
std::string printed;        // by the command that runs

// ---- The stack ----

const char* stack_bottom;

// Functions may call commands that call functions. GAP counts its own calls; commands need more
// stack than those, so they stop at half of it, or at 4 MB if there is no end.
bool stack_is_short() {
  static const std::size_t allowed = [] {
    rlimit limit{};
    const bool known = getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
    return known ? limit.rlim_cur / 2 : std::size_t{4} << 20;
  }();
  const char* const here = static_cast<const char*>(__builtin_frame_address(0));
  return static_cast<std::size_t>(stack_bottom - here) > allowed;
}

// ---- Memory ----

// What commands leave behind goes when it has doubled, and is worth it.
void collect() {
  constexpr std::size_t kLeast = std::size_t{4} << 20;
  static std::size_t limit = kLeast;
  if (depth > 0 || velmor_object_bytes(heap) < limit) return;
  velmor_collect(heap);
  limit = std::max(kLeast, 2 * velmor_object_bytes(heap));
}

// ---- Functions as procedures ----

// False when it was left by a GAP error. A frame of its own: what it has in registers is lost then.
__attribute__((noinline)) bool call_function(Obj function, Obj arguments, Obj* result) {
  volatile bool done = false;
  GAP_TRY {
    *result = CallFuncList(function, arguments);
    done = true;
  }
  GAP_CATCH {}
  return done;
}

HostObject evaluate(HostObject procedure, HostObject argseq) {
  if (velmor_tag(procedure) == HOST_TAG_NAME) {
    const Binding* const binding = find_binding(velmor_text(procedure));
    if (binding == nullptr)
      throw std::runtime_error(std::string("no command ") + velmor_text(procedure));
    HostObject result = 0;
    if (velmor_call(heap, binding->command, argseq, &result) == 0)
      throw std::runtime_error(velmor_error(heap));
    return result;
  }
  if (velmor_tag(procedure) != velmor::kTagProcedure)
    throw std::runtime_error(velmor::print(procedure) + " is not a function");
  const ThreadLocale own(locale);
  const Obj function = Procedures::unwrap(procedure);
  Obj result = 0;
  if (!call_function(function, FromHeap().items(argseq), &result)) {
    gap_error_is_pending = true;
    throw std::runtime_error("a function was left by an error");
  }
  return result == 0 ? velmor_sequence(heap, 0, nullptr) : ToHeap(heap).value(result);
}

int evaluate_for_heap(void* /*context*/, VelmorHeap* /*heap*/, HostObject procedure,
                      HostObject argseq, HostObject* result) {
  try {
    *result = evaluate(procedure, argseq);
    return 1;
  } catch (const std::exception& failure) {
    velmor_fail(heap, failure.what());
    return 0;
  }
}

// ---- Calls ----

int run_in_c_locale(VelmorCommand command, HostObject argseq, HostObject* value) {
  const ThreadLocale library(vstring_bindings::c_locale());
  locale = library.before();
  return velmor_call(heap, command, argseq, value);
}

// Makes the result; false, with `message` or gap_error_is_pending, when there is none.
bool run(const Binding& binding, Obj arguments, Obj* result) {
  try {
    if (stack_is_short())
      throw std::runtime_error("functions and commands call each other too deeply");
    collect();
    const Procedures procedures;
    const HostObject argseq = ToHeap(heap).arguments(arguments, binding.range_position);
    HostObject value = 0;
    ++depth;
    const int answered = run_in_c_locale(binding.command, argseq, &value);
    --depth;
    if (answered == 0) throw std::runtime_error(velmor_error(heap));
    *result = binding.gives_a_sequence ? FromHeap().items(value) : FromHeap().value(value);
    return true;
  } catch (const std::exception& failure) {
    message = failure.what();
    return false;
  }
}

void keep_printed(void* /*context*/, const char* text) { printed += text; }

void ignore_information(void* /*context*/, int64_t /*level*/, const char* /*package*/,
                        const char* /*text*/) {}

}  // namespace

void start() {
  stack_bottom = static_cast<const char*>(__builtin_frame_address(0));
  heap = velmor_heap_new();
  if (heap == nullptr) ErrorMayQuit("VString: out of memory", 0, 0);
  velmor_set_evaluator(heap, evaluate_for_heap, nullptr);
  velmor_set_output(heap, keep_printed, nullptr);
  velmor_set_userinfo(heap, ignore_information, nullptr);
}

Obj call(const Binding& binding, Obj arguments) {
  Obj result = 0;
  const bool done = run(binding, arguments, &result);
  if (depth == 0 && !printed.empty()) {
    Pr("%s", reinterpret_cast<Int>(printed.c_str()), 0);
    printed.clear();
  }
  if (std::exchange(gap_error_is_pending, false)) GAP_THROW();
  if (!done)
    ErrorMayQuit("VString.%s: %s", reinterpret_cast<Int>(binding.name),
                 reinterpret_cast<Int>(message.c_str()));
  return result;
}

Obj value_of_name(Obj text) {
  const HostObject value = velmor_value(heap, velmor_name(heap, CONST_CSTR_STRING(text)));
  return value == 0 ? 0 : FromHeap().value(value);
}

}  // namespace vstring_gap
