#include "values.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>

#include "commands.h"
#include "heap/object.h"

namespace vstring_python {

Package package;
VelmorHeap* heap = nullptr;

namespace {

using velmor::kTagFloat;
using velmor::kTagProcedure;

// Deeper values are refused, whatever the interpreter's own limit is.
constexpr std::size_t kDeepest = 500;

// A number may be the length of what is to be made.
constexpr long long kMuch = 1 << 20;

HostObject name_true, name_false, name_fail, no_value;

HostObject made(HostObject object) {
  if (object == 0) PyErr_NoMemory();
  return object;
}

HostObject refuse(PyObject* type, const char* message) {
  PyErr_SetString(type, message);
  return 0;
}

HostObject refuse_type(PyObject* value) {
  const Reference type(
      PyObject_GetAttrString(reinterpret_cast<PyObject*>(Py_TYPE(value)), "__name__"));
  if (type) PyErr_Format(PyExc_TypeError, "vstring has no use for a value of type %U", type.get());
  return 0;
}

bool is_a(PyObject* value, PyObject* type) {
  return PyObject_TypeCheck(value, reinterpret_cast<PyTypeObject*>(type)) != 0;
}

// The magnitude goes over in 64-bit words: decimal digits would take their time, and Python refuses
// to make many.
HostObject big_integer(PyObject* value) {
  const Reference zero(PyLong_FromLong(0));
  const int negative = zero ? PyObject_RichCompareBool(value, zero.get(), Py_LT) : -1;
  if (negative < 0) return 0;
  const Reference magnitude(PyNumber_Absolute(value));
  const Reference bits(magnitude ? PyObject_CallMethod(magnitude.get(), "bit_length", nullptr)
                                 : nullptr);
  if (!bits) return 0;
  const std::size_t limbs = PyLong_AsSize_t(bits.get()) / 64 + 1;
  const Reference digits(PyObject_CallMethod(magnitude.get(), "to_bytes", "ns",
                                             static_cast<Py_ssize_t>(8 * limbs), "little"));
  if (!digits) return 0;
  std::vector<std::uint64_t> words(limbs);
  std::memcpy(words.data(), PyBytes_AsString(digits.get()), 8 * limbs);
  return made(velmor_integer_of_limbs(heap, limbs, words.data(), negative));
}

Reference python_integer(HostObject object) {
  if (velmor::is_immediate(object))
    return Reference(PyLong_FromLongLong(velmor::immediate_value(object)));
  const Py_ssize_t size = static_cast<Py_ssize_t>(8 * (velmor::length_in_words(object) - 1));
  const Reference digits(
      PyBytes_FromStringAndSize(reinterpret_cast<const char*>(velmor::words(object) + 1), size));
  if (!digits) return {};
  Reference magnitude(PyObject_CallMethod(reinterpret_cast<PyObject*>(&PyLong_Type), "from_bytes",
                                          "Os", digits.get(), "little"));
  if (!magnitude || velmor_tag(object) == HOST_TAG_NON_NEGATIVE) return magnitude;
  return Reference(PyNumber_Negative(magnitude.get()));
}

// What a procedure prints as.
Reference callable_name(PyObject* value) {
  Reference name(PyObject_GetAttrString(value, "__name__"));
  if (name && PyUnicode_Check(name.get())) return name;
  PyErr_Clear();
  return Reference(PyObject_GetAttrString(reinterpret_cast<PyObject*>(Py_TYPE(value)), "__name__"));
}

}  // namespace

bool Package::import() {
  const Reference module(PyImport_ImportModule("vstring._values"));
  if (!module) return false;
  const auto get = [&](PyObject*& member, const char* attribute) {
    member = PyObject_GetAttrString(module.get(), attribute);
    return member != nullptr;
  };
  return get(error, "Error") && get(fail, "FAIL") && get(name, "Name") && get(range, "Range") &&
         get(equation, "Eq") && get(element, "_");
}

bool make_heap() {
  heap = velmor_heap_new();
  if (heap == nullptr) return false;
  name_true = velmor_name(heap, "true");
  name_false = velmor_name(heap, "false");
  name_fail = velmor_name(heap, "FAIL");
  no_value = velmor_sequence(heap, 0, nullptr);
  return name_true != 0 && name_false != 0 && name_fail != 0;
}

// ---- From Python ----

HostObject Values::to_host(PyObject* value) {
  const unsigned long kind = PyType_GetFlags(Py_TYPE(value));
  if ((kind & Py_TPFLAGS_UNICODE_SUBCLASS) != 0) return string(value);
  if ((kind & Py_TPFLAGS_BYTES_SUBCLASS) != 0) {
    bytes_ = true;
    return text(PyBytes_AsString(value), static_cast<std::size_t>(PyBytes_Size(value)));
  }
  if (value == Py_True) return name_true;
  if (value == Py_False) return name_false;
  if ((kind & Py_TPFLAGS_LONG_SUBCLASS) != 0) return integer(value);
  if (PyFloat_Check(value)) return made(velmor_float(heap, PyFloat_AsDouble(value)));
  if (value == package.fail) return name_fail;
  if (value == package.element)
    return refuse(PyExc_TypeError, "_ is the element in the arguments of each()");
  if (is_a(value, package.name)) return name(value);
  if (depth_ == kDeepest) return refuse(PyExc_RecursionError, "a value is nested too deeply");
  ++depth_;
  HostObject object = 0;
  if ((kind & (Py_TPFLAGS_LIST_SUBCLASS | Py_TPFLAGS_TUPLE_SUBCLASS)) != 0)
    object = list(value, (kind & Py_TPFLAGS_LIST_SUBCLASS) != 0);
  else if (PyAnySet_Check(value))
    object = set(value);
  else if (is_a(value, package.range))
    object = pair(value, "low", "high", velmor_range);
  else if (is_a(value, package.equation))
    object = pair(value, "left", "right", velmor_equation);
  else if (PyCallable_Check(value) != 0)
    object = callable(value);
  else
    object = refuse_type(value);
  --depth_;
  return object;
}

HostObject Values::returned(PyObject* value) {
  return value == Py_None ? no_value : to_host(value);
}

HostObject Values::equation(PyObject* name, PyObject* value) {
  Py_ssize_t size = 0;
  const char* const utf8 = PyUnicode_AsUTF8AndSize(name, &size);
  if (utf8 == nullptr) return 0;
  if (std::strlen(utf8) != static_cast<std::size_t>(size))
    return refuse(PyExc_ValueError, "a name cannot hold a zero byte");
  const HostObject left = made(velmor_name(heap, utf8));
  if (left == 0) return 0;
  const HostObject right = to_host(value);
  if (right == 0) return 0;
  return made(velmor_equation(heap, left, right));
}

HostObject Values::text(const char* bytes, std::size_t size) {
  if (std::memchr(bytes, '\0', size) != nullptr)
    return refuse(PyExc_ValueError, "a text cannot hold a zero byte");
  size_ += size;
  return made(velmor_string_n(heap, bytes, size));
}

// Only what has lone surrogates is not UTF-8 already.
HostObject Values::string(PyObject* value) {
  Py_ssize_t size = 0;
  if (const char* const utf8 = PyUnicode_AsUTF8AndSize(value, &size))
    return text(utf8, static_cast<std::size_t>(size));
  if (PyErr_ExceptionMatches(PyExc_UnicodeEncodeError) == 0) return 0;
  PyErr_Clear();
  const Reference encoded(PyUnicode_AsEncodedString(value, "utf-8", "surrogateescape"));
  if (!encoded) return 0;
  return text(PyBytes_AsString(encoded.get()),
              static_cast<std::size_t>(PyBytes_Size(encoded.get())));
}

HostObject Values::integer(PyObject* value) {
  int overflow = 0;
  const long long small = PyLong_AsLongLongAndOverflow(value, &overflow);
  if (overflow != 0) return big_integer(value);
  if (small == -1 && PyErr_Occurred() != nullptr) return 0;
  size_ += static_cast<std::size_t>(std::clamp(small, 0LL, kMuch));
  return made(velmor_integer(heap, small));
}

HostObject Values::name(PyObject* value) {
  const Reference key(PyObject_GetAttrString(value, "_key"));
  const Reference text(key ? PyObject_GetAttrString(value, "text") : nullptr);
  if (!text) return 0;
  if (PyBytes_Check(text.get())) bytes_ = true;
  const char* const bytes = PyBytes_AsString(key.get());
  if (bytes == nullptr) return 0;
  const HostObject name = made(velmor_name(heap, bytes));
  if (name == 0) return 0;
  size_ += static_cast<std::size_t>(PyBytes_Size(key.get()));
  names_.push_back({Reference::to(value), name});
  return name;
}

// Making an object may run a finaliser, which may change the list.
HostObject Values::list(PyObject* value, bool is_list) {
  const auto size = [=] { return is_list ? PyList_Size(value) : PyTuple_Size(value); };
  std::vector<HostObject> items;
  items.reserve(static_cast<std::size_t>(size()));
  for (Py_ssize_t i = 0; i < size(); ++i) {
    const Reference item =
        Reference::to(is_list ? PyList_GetItem(value, i) : PyTuple_GetItem(value, i));
    const HostObject object = to_host(item.get());
    if (object == 0) return 0;
    items.push_back(object);
  }
  return made(velmor_list(heap, items.size(), items.data()));
}

// In increasing order if there is one: a set of strings has another order in each process.
HostObject Values::set(PyObject* value) {
  const Reference sorted(PySequence_List(value));
  if (!sorted) return 0;
  if (PyList_Sort(sorted.get()) < 0) {
    if (PyErr_ExceptionMatches(PyExc_TypeError) == 0) return 0;
    PyErr_Clear();
  }
  const HostObject items = list(sorted.get(), true);
  if (items == 0) return 0;
  const HostObject elements = velmor::elements_of(items);
  return made(velmor_set(heap, 1, &elements));
}

HostObject Values::pair(PyObject* value, const char* left, const char* right,
                        HostObject (*make)(VelmorHeap*, HostObject, HostObject)) {
  HostObject sides[2];
  for (const int i : {0, 1}) {
    const Reference side(PyObject_GetAttrString(value, i == 0 ? left : right));
    sides[i] = side ? to_host(side.get()) : 0;
    if (sides[i] == 0) return 0;
  }
  return made(make(heap, sides[0], sides[1]));
}

// The procedure's data is the callable's address, or -i for the i-th command, which needs no
// Python.
HostObject Values::callable(PyObject* value) {
  const std::size_t command = command_of(value);
  const Reference name = callable_name(value);
  const char* const text = name ? PyUnicode_AsUTF8AndSize(name.get(), nullptr) : nullptr;
  if (text == nullptr) return 0;
  callables_.push_back(Reference::to(value));
  const HostObject data =
      velmor_integer(heap, command != kNoCommand ? -static_cast<std::int64_t>(command)
                                                 : std::bit_cast<std::int64_t>(value));
  return made(data == 0 ? 0 : velmor_procedure(heap, text, data));
}

void Values::go_back(const Mark& mark) {
  names_.erase(names_.begin() + static_cast<std::ptrdiff_t>(mark.names), names_.end());
  callables_.erase(callables_.begin() + static_cast<std::ptrdiff_t>(mark.callables),
                   callables_.end());
  size_ = mark.size;
  bytes_ = mark.bytes;
}

// ---- To Python ----

Reference Values::to_python(HostObject object, bool hashable) {
  switch (velmor_tag(object)) {
    case HOST_TAG_STRING:
      return python_text(object);
    case HOST_TAG_NEGATIVE:
    case HOST_TAG_NON_NEGATIVE:
      return python_integer(object);
    case kTagFloat:
      return Reference(PyFloat_FromDouble(std::bit_cast<double>(velmor::words(object)[1])));
    case HOST_TAG_NAME: {
      if (object == name_true) return Reference::to(Py_True);
      if (object == name_false) return Reference::to(Py_False);
      if (object == name_fail) return Reference::to(package.fail);
      const Reference text = python_text(object);
      return Reference(text ? PyObject_CallFunctionObjArgs(package.name, text.get(), nullptr)
                            : nullptr);
    }
    case HOST_TAG_RANGE:
    case HOST_TAG_EQUATION: {
      const Reference left = to_python(velmor::words(object)[1], hashable);
      const Reference right = left ? to_python(velmor::words(object)[2], hashable) : Reference();
      if (!right) return {};
      return Reference(PyObject_CallFunctionObjArgs(
          velmor_tag(object) == HOST_TAG_RANGE ? package.range : package.equation, left.get(),
          right.get(), nullptr));
    }
    case kTagProcedure: {
      const std::int64_t data = velmor_to_integer(velmor_procedure_data(object));
      return Reference::to(data <= 0 ? function_of(static_cast<std::size_t>(-data))
                                     : std::bit_cast<PyObject*>(data));
    }
    case HOST_TAG_SEQUENCE:
      if (velmor_size(object) == 0) return Reference::to(Py_None);
      [[fallthrough]];
    case HOST_TAG_LIST:
    case HOST_TAG_SET:
      return python_items(object, hashable);
    default:
      PyErr_SetString(PyExc_SystemError, "a command returned an object of an unknown kind");
      return {};
  }
}

Reference Values::python_text(HostObject object) const {
  const char* const text = velmor_text(object);
  const auto size = static_cast<Py_ssize_t>(velmor_text_length(object));
  return Reference(bytes_ ? PyBytes_FromStringAndSize(text, size)
                          : PyUnicode_DecodeUTF8(text, size, "surrogateescape"));
}

// The elements of a set must have hashes: lists among them are tuples.
Reference Values::python_items(HostObject object, bool hashable) {
  const int tag = velmor_tag(object);
  const bool is_list = tag == HOST_TAG_LIST && !hashable;
  const std::size_t n = velmor_size(object);
  const auto size = static_cast<Py_ssize_t>(n);
  Reference items(is_list ? PyList_New(size) : PyTuple_New(size));
  if (!items) return {};
  for (std::size_t i = 0; i < n; ++i) {
    Reference item = to_python(velmor_element(object, i + 1), hashable || tag == HOST_TAG_SET);
    if (!item) return {};
    const auto at = static_cast<Py_ssize_t>(i);
    if (is_list)
      PyList_SetItem(items.get(), at, item.release());
    else
      PyTuple_SetItem(items.get(), at, item.release());
  }
  if (tag != HOST_TAG_SET) return items;
  return Reference(hashable ? PyFrozenSet_New(items.get()) : PySet_New(items.get()));
}

bool Values::deliver_names() {
  bool delivered = true;
  for (const NameInUse& use : names_) {
    const HostObject value = velmor_value(heap, use.name);
    if (value == 0 || !delivered) continue;
    const Reference given = to_python(value);
    delivered = given && PyObject_SetAttrString(use.object.get(), "value", given.get()) == 0;
  }
  for (const NameInUse& use : names_) velmor_assign(heap, use.name, 0);
  return delivered;
}

}  // namespace vstring_python
