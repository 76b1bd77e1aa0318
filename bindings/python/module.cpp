// The module vstring._vstring: a function for each command, and each().
#include "call.h"
#include "commands.h"
#include "interpreter.h"
#include "values.h"

namespace {

using namespace vstring_python;

PyObject* lock(PyObject* /*module*/, PyObject* /*nothing*/) {
  return lock_heap(HeapLock::Wait::kThroughSignals) ? Reference::to(Py_None).release() : nullptr;
}

PyObject* unlock(PyObject* /*module*/, PyObject* /*nothing*/) {
  unlock_heap();
  return Reference::to(Py_None).release();
}

constexpr const char* kEach =
    "each(command, iterable, *arguments, **equations)\n\n"
    "The list of the command's values for the elements of the iterable. The element stands where\n"
    "vstring._ is among the arguments, else first. The command is a function or its name.\n\n"
    ">>> vstring.each('length', ['a', 'bc'])\n[1, 2]\n"
    ">>> vstring.each(vstring.take, ['abc', 'de'], 1)\n['a', 'd']\n"
    ">>> vstring.each('isprefix', ['abc', 'de'], 'a', vstring._)\n[True, False]";

PyMethodDef each_definition = {"each",
                               reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(each)),
                               METH_FASTCALL | METH_KEYWORDS, kEach};

// For a process that forks: no other thread may be within a call then.
PyMethodDef around_fork[] = {{"_lock", lock, METH_NOARGS, nullptr},
                             {"_unlock", unlock, METH_NOARGS, nullptr},
                             {nullptr, nullptr, 0, nullptr}};

PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                          "vstring._vstring",
                          nullptr,
                          -1,
                          around_fork,
                          nullptr,
                          nullptr,
                          nullptr,
                          nullptr};

}  // namespace

PyMODINIT_FUNC PyInit__vstring();  // declared by nobody, found by its name

PyMODINIT_FUNC PyInit__vstring() {
  return guarded([]() -> PyObject* {
    Reference module(PyModule_Create(&definition));
    if (!module || !package.import()) return nullptr;
    if (!make_heap()) return PyErr_NoMemory();
    connect_heap();
    if (!add_commands(module.get())) return nullptr;
    const Reference name(PyUnicode_FromString("vstring"));
    const Reference each_function(name ? PyCFunction_NewEx(&each_definition, nullptr, name.get())
                                       : nullptr);
    if (!each_function || PyObject_SetAttrString(module.get(), "each", each_function.get()) < 0 ||
        PyModule_AddStringConstant(module.get(), "__version__", VSTRING_VERSION) < 0)
      return nullptr;
    return module.release();
  });
}
