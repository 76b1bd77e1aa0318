// SPDX-License-Identifier: GPL-2.0-or-later
// Values of GAP as host objects, and back.
//
// Nothing here leaves by a GAP error (a longjmp): objects are read and made by the kernel's own
// functions, which run no code of the library. What cannot be handed over throws
// std::runtime_error. A GAP object that is held here is on the C stack, an element of one that is,
// or of the global list of procedures: that is where GAP's collector looks. The places of its bytes
// are asked for anew each time.
#pragma once
#include <cstddef>
#include <unordered_map>

#include "gap_kernel.h"
#include "heap/velmor_runtime.h"

namespace vstring_gap {

// How deep lists may be nested. Also what makes a list that contains itself an error.
constexpr int kDeepest = 1000;

// The objects of record.g that stand for what GAP has no values for. Each has two components, or
// one: left and right, low and high, text.
struct Kind {
  const char* type_variable;  // of record.g, that holds the type
  const char* first;
  const char* second;  // null for a name
  Obj type = 0;
  UInt first_component = 0, second_component = 0;
};
extern Kind equation, range, name;

// Once, and whenever a saved workspace has come back.
void declare_kinds();
void find_components();

// Functions on their way through a command: GAP's collector does not see into the heap, which holds
// numbers of this list instead. A call takes its own off again.
class Procedures {
 public:
  static void declare();
  static void create();
  Procedures();
  ~Procedures();
  Procedures(const Procedures&) = delete;
  Procedures& operator=(const Procedures&) = delete;
  static HostObject wrap(VelmorHeap* heap, Obj function);
  static Obj unwrap(HostObject procedure);

 private:
  UInt outer_;
};

class ToHeap {
 public:
  explicit ToHeap(VelmorHeap* heap) : heap_(heap) {}
  // The arguments of a command, a plain list. At `range_position`, if not 0, a list of consecutive
  // integers is the range from the first to the last.
  HostObject arguments(Obj list, UInt range_position);
  HostObject value(Obj object) { return value(object, 0); }

 private:
  HostObject value(Obj object, int depth);
  HostObject integer(Obj object);
  HostObject text(const void* bytes, std::size_t length);
  HostObject list(Obj object, int depth);
  HostObject equations(Obj record, int depth);
  HostObject component_object(Obj object, int depth);

  VelmorHeap* heap_;
  std::unordered_map<Obj, HostObject> known_;  // nested lists: each is taken over once
};

class FromHeap {
 public:
  // 0, GAP's way to say that there is no value, for the empty sequence.
  Obj value(HostObject object);
  // The same as a list, whatever the number of items: of a sequence or the empty list the items,
  // else the one value.
  Obj items(HostObject object);

 private:
  Obj value(HostObject object, int depth);
  Obj integer(HostObject object);
  Obj list(HostObject object, int depth);

  std::unordered_map<HostObject, Obj> known_;
};

}  // namespace vstring_gap
