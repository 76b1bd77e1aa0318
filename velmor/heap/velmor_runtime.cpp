// The C interface: each function a line or two over the heap and the call.
#include "velmor_runtime.h"

#include <algorithm>
#include <cstring>
#include <exception>

#include "big_integer.h"
#include "call.h"
#include "print.h"
#include "table.h"

using namespace velmor;

namespace {

// The result of `make`, or 0 when it throws: C has no other way to learn of it.
template <class Make>
auto value_or_null(Make make) -> decltype(make()) {
  try {
    return make();
  } catch (const std::exception&) {
    return 0;
  }
}

}  // namespace

VelmorHeap* velmor_heap_new(void) {
  try {
    return new VelmorHeap;
  } catch (const std::exception&) {
    return nullptr;
  }
}

void velmor_heap_free(VelmorHeap* heap) {
  forget(heap);
  delete heap;
}

const HostTable* velmor_table(VelmorHeap* heap) {
  make_current(heap);
  return &table();
}

// ---- Making values ----

HostObject velmor_integer(VelmorHeap* heap, int64_t value) {
  return value_or_null([=] { return heap->objects.integer(value); });
}

HostObject velmor_big_integer(VelmorHeap* heap, const char* decimal) {
  return value_or_null([=] { return heap->objects.big_integer(parse_decimal(decimal)); });
}

HostObject velmor_integer_of_limbs(VelmorHeap* heap, size_t n, const uint64_t* limbs,
                                   int negative) {
  return value_or_null([=] {
    return heap->objects.big_integer({{limbs, limbs + n}, negative != 0});
  });
}

HostObject velmor_float(VelmorHeap* heap, double value) {
  return value_or_null([=] { return heap->objects.floating(value); });
}

HostObject velmor_string(VelmorHeap* heap, const char* text) {
  return velmor_string_n(heap, text, std::strlen(text));
}

HostObject velmor_string_n(VelmorHeap* heap, const char* bytes, size_t length) {
  return value_or_null([=] { return heap->objects.string({bytes, length}); });
}

HostObject velmor_name(VelmorHeap* heap, const char* text) {
  return value_or_null([=] { return heap->objects.name(text); });
}

HostObject velmor_sequence(VelmorHeap* heap, size_t n, const HostObject* items) {
  return value_or_null([=] { return heap->objects.sequence(std::span(items, n)); });
}

HostObject velmor_list(VelmorHeap* heap, size_t n, const HostObject* items) {
  return value_or_null(
      [=] { return heap->objects.list(heap->objects.sequence(std::span(items, n))); });
}

HostObject velmor_set(VelmorHeap* heap, size_t n, const HostObject* items) {
  return value_or_null(
      [=] { return heap->objects.set(heap->objects.sequence(std::span(items, n))); });
}

HostObject velmor_range(VelmorHeap* heap, HostObject low, HostObject high) {
  return value_or_null([=] { return heap->objects.range(low, high); });
}

HostObject velmor_equation(VelmorHeap* heap, HostObject left, HostObject right) {
  return value_or_null([=] { return heap->objects.equation(left, right); });
}

HostObject velmor_function(VelmorHeap* heap, HostObject name, HostObject argseq) {
  return value_or_null([=] { return heap->objects.function(name, argseq); });
}

HostObject velmor_procedure(VelmorHeap* heap, const char* text, HostObject data) {
  return value_or_null([=] { return heap->objects.procedure(heap->objects.string(text), data); });
}

// ---- Reading values ----

int velmor_tag(HostObject object) { return tag_of(object); }

const char* velmor_text(HostObject object) { return is_text(object) ? text_of(object) : nullptr; }

size_t velmor_text_length(HostObject object) { return is_text(object) ? text_length(object) : 0; }

int64_t velmor_to_integer(HostObject object) {
  return is_integer(object) ? to_int64(object).value_or(0) : 0;
}

size_t velmor_size(HostObject object) {
  const HostObject sequence = elements_of(object);
  return sequence == 0 ? 0 : sequence_size(sequence);
}

HostObject velmor_element(HostObject object, size_t i) {
  return i >= 1 && i <= velmor_size(object) ? words(elements_of(object))[i] : 0;
}

HostObject velmor_procedure_data(HostObject object) {
  return tag_of(object) == kTagProcedure ? words(object)[2] : 0;
}

char* velmor_print(VelmorHeap* /*heap*/, HostObject object) {
  return value_or_null([=] { return strdup(print(object).c_str()); });
}

char* velmor_print_utf8(VelmorHeap* /*heap*/, HostObject object) {
  return value_or_null([=] { return strdup(print(object, Escapes::kInvalidUtf8).c_str()); });
}

// ---- Names and evaluation ----

void velmor_assign(VelmorHeap* heap, HostObject name, HostObject value) {
  heap->objects.set_value(name, value);
}

HostObject velmor_value(VelmorHeap* /*heap*/, HostObject name) { return words(name)[kValueWord]; }

void velmor_protect(VelmorHeap* heap, HostObject name) { heap->objects.protect(name); }

int velmor_is_protected(HostObject name) { return Heap::is_protected(name) ? 1 : 0; }

void velmor_each_value(VelmorHeap* heap, void (*visit)(void*, HostObject), void* context) {
  for (const HostObject name : heap->objects.bound_names())
    if (words(name)[kValueWord] != 0) visit(context, name);
}

void velmor_set_evaluator(VelmorHeap* heap, VelmorEvaluator evaluator, void* context) {
  heap->evaluator = evaluator;
  heap->evaluator_context = context;
}

void velmor_fail(VelmorHeap* heap, const char* message) { heap->error = message; }

// ---- Calling and output ----

const char* velmor_error(VelmorHeap* heap) { return heap->error.c_str(); }

void velmor_set_output(VelmorHeap* heap, void (*print)(void*, const char*), void* context) {
  heap->print = print != nullptr ? print : velmor::print_to_stdout;
  heap->print_context = context;
}

void velmor_set_userinfo(VelmorHeap* heap, void (*info)(void*, int64_t, const char*, const char*),
                         void* context) {
  heap->inform = info != nullptr ? info : velmor::inform_stderr;
  heap->inform_context = context;
}

// ---- Collecting ----

size_t velmor_collect(VelmorHeap* heap) {
  return heap->depth > 0 ? 0 : value_or_null([=] { return heap->objects.collect(); });
}

void velmor_root(VelmorHeap* heap, HostObject object) { heap->objects.roots().add(object); }

void velmor_unroot(VelmorHeap* heap, HostObject object) { heap->objects.roots().remove(object); }

size_t velmor_object_count(const VelmorHeap* heap) { return heap->objects.object_count(); }

size_t velmor_object_bytes(const VelmorHeap* heap) { return heap->objects.object_bytes(); }

size_t velmor_protected_count(const VelmorHeap* heap) {
  size_t total = 0;
  for (const auto& [object, count] : heap->objects.protections().counts()) total += count;
  return total;
}

// ---- For tests ----

void velmor_fail_operation(VelmorHeap* heap, size_t k) {
  heap->failing_operation = k == 0 ? 0 : heap->operations + k;
}

void velmor_raise_by_exception(VelmorHeap* heap, int is_wanted) { heap->throws = is_wanted != 0; }

size_t velmor_operation_count(const VelmorHeap* heap) { return heap->operations; }

const char* velmor_faults(const VelmorHeap* heap) { return heap->faults.c_str(); }

void velmor_clear_faults(VelmorHeap* heap) { heap->faults.clear(); }

void velmor_set_text_layout(VelmorHeap* heap, size_t words, unsigned char filler) {
  heap->objects.text_layout = {words, filler};
}

void velmor_set_attribute(VelmorHeap* heap, HostObject name, HostObject value) {
  heap->objects.set_attribute(name, value);
}
