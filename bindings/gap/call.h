// SPDX-License-Identifier: GPL-2.0-or-later
// A call of a command from GAP.
#pragma once
#include "gap_kernel.h"
#include "heap/velmor_runtime.h"

namespace vstring_gap {

struct Binding {
  const char* name;
  VelmorCommand command;
  UInt range_position;    // of the argument that is a range; 0 for none
  bool gives_a_sequence;  // which is a list in GAP, even of one item or none
};

void start();  // once, before the first call

// The result for a list of arguments; 0, GAP's way to say so, when there is no value. Leaves by a
// GAP error when the command refuses, or when a function that it called did.
Obj call(const Binding& binding, Obj arguments);

// What a command has assigned to the name with this text; 0 for nothing.
Obj value_of_name(Obj text);

}  // namespace vstring_gap
