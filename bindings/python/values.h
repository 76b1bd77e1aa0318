// Values of Python as objects of the heap, and back. docs/python.md has the table.
#pragma once
#include <cstddef>
#include <vector>

#include "heap/velmor_runtime.h"
#include "reference.h"

namespace vstring_python {

// The package's own types and constants.
struct Package {
  PyObject *error, *fail, *name, *range, *equation, *element;
  bool import();  // false with a Python exception
};
extern Package package;

// Makes the heap; false when memory fails.
bool make_heap();
extern VelmorHeap* heap;

// The values of one call: what was seen on the way in decides on the way out.
class Values {
 public:
  // 0 with a Python exception. The object is good until the heap is collected; a callable is kept
  // as long as this is.
  HostObject to_host(PyObject* value);
  HostObject returned(PyObject* value);  // by a callable: None, too, which is no value
  HostObject equation(PyObject* name, PyObject* value);  // name = value, of a keyword argument
  // Null with a Python exception.
  Reference to_python(HostObject object, bool hashable = false);

  // Moves what a command has assigned to the names into the Name objects. False with an exception.
  bool deliver_names();

  // How much was seen; going back forgets what came after.
  struct Mark {
    std::size_t names, callables, size;
    bool bytes;
  };
  Mark mark() const { return {names_.size(), callables_.size(), size_, bytes_}; }
  void go_back(const Mark& mark);

  bool has_names() const { return !names_.empty(); }
  std::size_t size() const { return size_; }  // of all texts seen, numbers added

 private:
  HostObject text(const char* bytes, std::size_t size);
  HostObject string(PyObject* value);
  HostObject integer(PyObject* value);
  HostObject name(PyObject* value);
  HostObject list(PyObject* value, bool is_list);
  HostObject set(PyObject* value);
  HostObject pair(PyObject* value, const char* left, const char* right,
                  HostObject (*make)(VelmorHeap*, HostObject, HostObject));
  HostObject callable(PyObject* value);
  Reference python_text(HostObject object) const;
  Reference python_items(HostObject object, bool hashable);

  struct NameInUse {
    Reference object;
    HostObject name;
  };
  std::vector<NameInUse> names_;
  std::vector<Reference> callables_;
  std::size_t size_ = 0;
  std::size_t depth_ = 0;
  bool bytes_ = false;  // texts go out as bytes
};

}  // namespace vstring_python
