// SPDX-License-Identifier: GPL-2.0-or-later
// What the two directions share: the types of record.g, and the list of procedures.
#include <stdexcept>

#include "values.h"

namespace vstring_gap {
namespace {

Obj procedures;  // a plain list

UInt procedure_count() { return static_cast<UInt>(LEN_PLIST(procedures)); }

}  // namespace

Kind equation = {"TYPE_VSTRING_EQUATION", "left", "right"};
Kind range = {"TYPE_VSTRING_RANGE", "low", "high"};
Kind name = {"TYPE_VSTRING_NAME", "text", nullptr};

void declare_kinds() {
  for (Kind* kind : {&equation, &range, &name}) InitCopyGVar(kind->type_variable, &kind->type);
}

void find_components() {
  for (Kind* kind : {&equation, &range, &name}) {
    kind->first_component = RNamName(kind->first);
    if (kind->second != nullptr) kind->second_component = RNamName(kind->second);
  }
}

void Procedures::declare() { InitGlobalBag(&procedures, "vstring:procedures"); }

void Procedures::create() { procedures = NEW_PLIST(T_PLIST, 0); }

Procedures::Procedures() : outer_(procedure_count()) {}

Procedures::~Procedures() {
  for (UInt i = procedure_count(); i > outer_; --i)
    SET_ELM_PLIST(procedures, static_cast<Int>(i), 0);
  SET_LEN_PLIST(procedures, static_cast<Int>(outer_));
}

HostObject Procedures::wrap(VelmorHeap* heap, Obj function) {
  const UInt number = PushPlist(procedures, function);
  const HostObject data = velmor_integer(heap, static_cast<int64_t>(number));
  const HostObject procedure = velmor_procedure(heap, "a function", data);
  if (data == 0 || procedure == 0) throw std::bad_alloc();
  return procedure;
}

Obj Procedures::unwrap(HostObject procedure) {
  const int64_t number = velmor_to_integer(velmor_procedure_data(procedure));
  if (number < 1 || static_cast<UInt>(number) > procedure_count())
    throw std::runtime_error("a function cannot outlive the call that it was given to");
  return ELM_PLIST(procedures, number);
}

}  // namespace vstring_gap
