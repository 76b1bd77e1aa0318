// SPDX-License-Identifier: GPL-2.0-or-later
// Every command with the function that GAP calls.
#pragma once
#include <string_view>

#include "call.h"

namespace vstring_gap {

void declare_functions();  // whenever GAP starts
Obj new_functions();       // a record: name of a command or alias -> function
Obj new_rows();  // a list: name, signature, help, example, its result, what comes back, notes

const Binding* find_binding(std::string_view name);  // null when there is none

}  // namespace vstring_gap
