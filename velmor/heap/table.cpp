#include "table.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>
#include <stdexcept>
#include <utility>
#include <vector>

#include "call.h"
#include "print.h"

namespace velmor {
namespace {

// ---- The edge of an operation ----

struct LibraryFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

void require(bool condition, const char* fault) {
  if (!condition) throw LibraryFault(fault);
}

// Runs the body; false, with the error noted, when it throws. All is unwound when this returns.
template <class Body>
bool attempt(VelmorHeap& heap, Body body) {
  try {
    body();
    return true;
  } catch (const LibraryFault& fault) {
    heap.error = report_fault(heap, fault.what());
  } catch (const std::bad_alloc&) {
    heap.error = "out of memory";
  } catch (const std::exception& failure) {
    heap.error = failure.what();
  }
  return false;
}

// An operation that raises only when the library misuses it.
template <class Body>
auto checked(Body body) {
  VelmorHeap& heap = current_heap();
  decltype(body(heap)) result{};
  if (!attempt(heap, [&] { result = body(heap); })) leave_call(heap);
  return result;
}

// Counts an operation that may raise in any host, and fails the one that a test has chosen.
void count_operation(VelmorHeap& heap) {
  ++heap.operations;
  if (heap.operations != heap.failing_operation || heap.way_out == nullptr) return;
  heap.failing_operation = 0;
  throw std::runtime_error("injected failure");
}

template <class Body>
auto raising(Body body) {
  return checked([&](VelmorHeap& heap) {
    count_operation(heap);
    return body(heap);
  });
}

constexpr int kNothing = 0;  // what the body of an operation without a result returns

template <std::size_t Position>
void unlisted() {
  checked([](VelmorHeap&) -> int {
    throw LibraryFault("unlisted position " + std::to_string(Position) + " called");
  });
}

// The same for an operation that the library knows of but this host leaves out.
template <std::size_t Position, class Result, class... Arguments>
void leave_out(Result (*&operation)(Arguments...)) {
  operation = [](Arguments...) {
    unlisted<Position>();
    return Result();
  };
}

std::size_t checked_count(std::int64_t n, const char* fault) {
  require(n >= 0, fault);
  return static_cast<std::size_t>(n);
}

// `n` objects from a variable argument list. (The analyser loses sight of a list that was started
// outside of the lambda that reads it: hence its silencing, here and below.)
std::vector<HostObject> read_objects(std::int64_t n, std::va_list& list, const char* fault) {
  std::vector<HostObject> objects(checked_count(n, fault));
  for (HostObject& object : objects) {
    object = va_arg(list, HostObject);  // NOLINT(clang-analyzer-valist.Uninitialized)
    require(object != 0, fault);
  }
  return objects;
}

HostObject host_rtable_create(void* /*settings*/, ...) {
  unlisted<55>();
  return 0;
}

// ---- Raising ----

std::string error_text(VelmorHeap& heap, const char* message, std::va_list& list) {
  require(message != nullptr, "HostError without a message");
  std::vector<HostObject> arguments(placeholder_count(message));
  for (HostObject& argument : arguments) {
    argument = va_arg(list, HostObject);  // NOLINT(clang-analyzer-valist.Uninitialized)
    require(heap.objects.owns(argument), "HostError: a placeholder stands for no object");
  }
  return format_message(message, arguments);
}

void host_error(const char* message, ...) {
  VelmorHeap& heap = current_heap();
  std::va_list list;
  va_start(list, message);
  attempt(heap, [&] { heap.error = error_text(heap, message, list); });
  va_end(list);
  leave_call(heap);
}

// ---- Kinds and values ----

int host_is_integer(HostObject object) { return is_integer(object); }
int host_is_integer32(HostObject object) { return is_integer32(object); }
int host_is_name(HostObject object) { return tag_of(object) == HOST_TAG_NAME; }
int host_is_string(HostObject object) { return tag_of(object) == HOST_TAG_STRING; }
int host_is_rtable(HostObject object) { return tag_of(object) == HOST_TAG_RTABLE; }

std::int32_t host_to_integer32(HostObject object) {
  return checked([=](VelmorHeap&) {
    require(is_integer32(object), "HostToInteger32 of no 32-bit integer");
    return static_cast<std::int32_t>(immediate_value(object));
  });
}

char* host_to_c_string(HostObject object) {
  return checked([=](VelmorHeap&) {
    require(tag_of(object) == HOST_TAG_STRING, "HostToCString of no string");
    return const_cast<char*>(text_of(object));
  });
}

std::int64_t host_num_args(HostObject argseq) {
  return checked([=](VelmorHeap&) {
    require(tag_of(argseq) == HOST_TAG_SEQUENCE, "HostNumArgs of no sequence");
    return static_cast<std::int64_t>(sequence_size(argseq));
  });
}

// ---- Making objects ----

HostObject host_new_integer(std::int64_t value) {
  return raising([=](VelmorHeap& heap) { return heap.objects.integer(value); });
}

HostObject host_new_float(double value) {
  return raising([=](VelmorHeap& heap) { return heap.objects.floating(value); });
}

HostObject host_new_string(const char* text) {
  return raising([=](VelmorHeap& heap) {
    require(text != nullptr, "HostNewString without a text");
    return heap.objects.string(text);
  });
}

HostObject host_new_name(const char* text, std::int64_t global) {
  return raising([=](VelmorHeap& heap) {
    require(text != nullptr, "HostNewName without a text");
    require(global == 1, "HostNewName of a name that is not global");
    return heap.objects.name(text);
  });
}

HostObject host_to_boolean(std::int64_t value) { return current_heap().objects.boolean(value); }

HostObject host_null() { return current_heap().objects.null(); }

HostObject host_new_sequence(std::int64_t n) {
  return raising([=](VelmorHeap& heap) {
    return heap.objects.sequence(checked_count(n, "HostNewExpSeq with a negative count"));
  });
}

HostObject host_new_sequence_of(std::int64_t n, ...) {
  VelmorHeap& heap = current_heap();
  HostObject result = 0;
  std::va_list list;
  va_start(list, n);
  const bool done = attempt(heap, [&] {
    count_operation(heap);
    result = heap.objects.sequence(read_objects(n, list, "HostNewSeqOf with a bad element"));
  });
  va_end(list);
  if (!done) leave_call(heap);
  return result;
}

HostObject host_sequence_to_list(HostObject sequence) {
  return raising([=](VelmorHeap& heap) {
    require(tag_of(sequence) == HOST_TAG_SEQUENCE, "HostSeqToList of no sequence");
    return heap.objects.list(sequence);
  });
}

HostObject host_new_list(std::int64_t n) {
  return raising([=](VelmorHeap& heap) {
    return heap.objects.list(
        heap.objects.sequence(checked_count(n, "HostNewList with a negative count")));
  });
}

void host_list_assign(HostObject list, std::int64_t i, HostObject element) {
  checked([=](VelmorHeap&) {
    require(tag_of(list) == HOST_TAG_LIST, "HostListAssign to no list");
    const auto elements = references(elements_of(list));
    require(i >= 1 && static_cast<std::uint64_t>(i) <= elements.size(),
            "HostListAssign outside of the list");
    require(element != 0, "HostListAssign of no object");
    elements[static_cast<std::size_t>(i) - 1] = element;
    return kNothing;
  });
}

HostObject host_new_expression(const char* op, HostObject left, HostObject right) {
  return raising([=](VelmorHeap& heap) {
    require(op != nullptr && std::strcmp(op, "=") == 0, "HostNewExpr with an unknown operator");
    require(left != 0 && right != 0, "HostNewExpr of no object");
    return heap.objects.equation(left, right);
  });
}

// ---- Names, evaluation, protection, output ----

void host_assign(HostObject name, HostObject value) {
  raising([=](VelmorHeap& heap) {
    require(tag_of(name) == HOST_TAG_NAME, "HostAssign to no name");
    require(value != 0, "HostAssign of no object");
    if (heap.objects.is_protected(name))
      throw std::runtime_error("cannot assign to " + print(name));
    heap.objects.set_value(name, value);
    return kNothing;
  });
}

HostObject host_quote(HostObject object) {
  return raising([=](VelmorHeap& heap) {
    require(object != 0, "HostQuote of no object");
    return heap.objects.quoted(object);
  });
}

HostObject host_eval_proc(HostObject procedure, std::int64_t n, ...) {
  VelmorHeap& heap = current_heap();
  HostObject result = 0;
  std::va_list list;
  va_start(list, n);
  const bool done = attempt(heap, [&] {
    count_operation(heap);
    require(procedure != 0, "HostEvalProc of no object");
    result = evaluate(heap, procedure, read_objects(n, list, "HostEvalProc with a bad argument"));
  });
  va_end(list);
  if (!done) leave_call(heap);
  return result;
}

void host_gc_protect(HostObject object) {
  raising([=](VelmorHeap& heap) {
    require(object != 0, "HostGcProtect of no object");
    heap.objects.protections().add(object);
    return kNothing;
  });
}

void host_gc_allow(HostObject object) {
  checked([=](VelmorHeap& heap) {
    require(heap.objects.protections().remove(object),
            "HostGcAllow of an object that is not protected");
    return kNothing;
  });
}

void host_user_info(std::int64_t level, const char* package, const char* text) {
  raising([=](VelmorHeap& heap) {
    require(package != nullptr && text != nullptr, "HostUserInfo without a text");
    heap.inform(heap.inform_context, level, package, text);
    return kNothing;
  });
}

std::string formatted(const char* format, std::va_list& list) {
  require(format != nullptr, "HostPrintf without a format");
  std::va_list again;
  va_copy(again, list);
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
  const int length = std::vsnprintf(nullptr, 0, format, again);
  va_end(again);
  require(length >= 0, "HostPrintf with a bad format");
  std::string text(static_cast<std::size_t>(length), '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, list);
  return text;
}

void host_printf(const char* format, ...) {
  VelmorHeap& heap = current_heap();
  std::va_list list;
  va_start(list, format);
  const bool done = attempt(heap, [&] {
    count_operation(heap);
    heap.print(heap.print_context, formatted(format, list).c_str());
  });
  va_end(list);
  if (!done) leave_call(heap);
}

// ---- The table ----

constexpr std::size_t kPositions = sizeof(HostTable) / sizeof(HostUnlisted);

template <std::size_t... Position>
HostTable table_of_faults(std::index_sequence<Position...>) {
  const std::array<HostUnlisted, kPositions> operations = {unlisted<Position>...};
  HostTable result;
  static_assert(sizeof operations == sizeof result);
  std::memcpy(&result, operations.data(), sizeof result);
  return result;
}

HostTable make_table() {
  HostTable t = table_of_faults(std::make_index_sequence<kPositions>());
  t.HostRTableCreate = host_rtable_create;
  leave_out<56>(t.HostRTableData);
  leave_out<57>(t.HostRTableSettings);
  leave_out<58>(t.HostRTableGetSettings);
  leave_out<63>(t.HostRTableNumElements);
  t.HostAssign = host_assign;
  t.HostError = host_error;
  t.HostSeqToList = host_sequence_to_list;
  t.HostEvalProc = host_eval_proc;
  t.HostIsInteger = host_is_integer;
  t.HostIsInteger32 = host_is_integer32;
  t.HostIsName = host_is_name;
  t.HostIsRTable = host_is_rtable;
  t.HostIsString = host_is_string;
  t.HostNewList = host_new_list;
  t.HostListAssign = host_list_assign;
  t.HostGcAllow = host_gc_allow;
  t.HostGcProtect = host_gc_protect;
  t.HostToInteger32 = host_to_integer32;
  t.HostToCString = host_to_c_string;
  t.HostNumArgs = host_num_args;
  t.HostToBoolean = host_to_boolean;
  t.HostNewExpSeq = host_new_sequence;
  t.HostNewSeqOf = host_new_sequence_of;
  t.HostNewInteger = host_new_integer;
  t.HostNewFloat = host_new_float;
  t.HostNewName = host_new_name;
  t.HostNull = host_null;
  t.HostNewExpr = host_new_expression;
  t.HostNewString = host_new_string;
  t.HostQuote = host_quote;
  t.HostUserInfo = host_user_info;
  t.HostPrintf = host_printf;
  return t;
}

}  // namespace

const HostTable& table() {
  static const HostTable the_table = make_table();
  return the_table;
}

}  // namespace velmor
