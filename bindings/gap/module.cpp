// SPDX-License-Identifier: GPL-2.0-or-later
// The module as GAP loads it. record.g makes the record VString of what is here.
#include "bindings.h"
#include "values.h"

namespace vstring_gap {
namespace {

Obj FuncVSTRING_FUNCTIONS(Obj /*self*/) { return new_functions(); }

Obj FuncVSTRING_ROWS(Obj /*self*/) { return new_rows(); }

Obj FuncVSTRING_VALUE(Obj /*self*/, Obj text) {
  RequireStringRep("VSTRING_VALUE", text);
  const Obj value = value_of_name(text);
  return value == 0 ? NewEmptyPlist() : NewPlistFromArgs(value);
}

StructGVarFunc functions[] = {GVAR_FUNC_0ARGS(VSTRING_FUNCTIONS),
                              GVAR_FUNC_0ARGS(VSTRING_ROWS),
                              GVAR_FUNC_1ARGS(VSTRING_VALUE, text),
                              {0, 0, 0, 0, 0}};

Int init_kernel(StructInitInfo* /*module*/) {
  start();
  declare_kinds();
  Procedures::declare();
  declare_functions();
  InitHdlrFuncsFromTable(functions);
  return 0;
}

Int init_library(StructInitInfo* /*module*/) {
  Procedures::create();
  find_components();
  InitGVarFuncsFromTable(functions);
  return 0;
}

Int restore(StructInitInfo* /*module*/) {
  find_components();
  return 0;
}

}  // namespace
}  // namespace vstring_gap

// What GAP looks for in a module.
extern "C" __attribute__((visibility("default"))) StructInitInfo* Init__Dynamic();

StructInitInfo* Init__Dynamic() {
  static StructInitInfo module = {
      .type = MODULE_DYNAMIC,
      .name = "vstring",
      .initKernel = vstring_gap::init_kernel,
      .initLibrary = vstring_gap::init_library,
      .postRestore = vstring_gap::restore,
  };
  return &module;
}
