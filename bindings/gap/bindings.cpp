// SPDX-License-Identifier: GPL-2.0-or-later
#include "bindings.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>

#include "lexiva/commands.h"

namespace vstring_gap {
namespace {

using velmor::lexiva::Command;

struct EntryPoint {
  std::string_view name;
  VelmorCommand command;
};

constexpr EntryPoint kEntryPoints[] = {
#define ENTRY_POINT(name) {#name, name},
#include "entry_points.inc"
#undef ENTRY_POINT
};
constexpr std::size_t kCount = std::size(kEntryPoints);

Binding bindings[kCount];  // in the order of the entry points

std::size_t index_of(const Command& row) {
  const auto found = std::ranges::find(kEntryPoints, row.entry_point, &EntryPoint::name);
  if (found == std::end(kEntryPoints)) throw std::logic_error(row.entry_point);
  return static_cast<std::size_t>(found - kEntryPoints);
}

// GAP's functions do not tell which one was called, but each may have a handler of its own.
template <std::size_t Index>
Obj handle(Obj /*self*/, Obj arguments) {
  return call(bindings[Index], arguments);
}

using Handler = Obj (*)(Obj self, Obj arguments);

template <std::size_t... Index>
Handler handler_at(std::size_t i, std::index_sequence<Index...>) {
  static constexpr Handler kHandlers[] = {handle<Index>...};
  return kHandlers[i];
}

ObjFunc handler_of(const Command& row) {
  const Handler handler = handler_at(index_of(row), std::make_index_sequence<kCount>());
  return reinterpret_cast<ObjFunc>(reinterpret_cast<void*>(handler));
}

// Where a signature such as "substr(s, a .. b)" has a range.
UInt range_position(std::string_view signature) {
  const std::size_t range_at = signature.find(" .. ");
  if (range_at == signature.npos) return 0;
  const std::string_view before = signature.substr(0, range_at);
  const std::string_view arguments = before.substr(before.rfind('('));
  return static_cast<UInt>(std::ranges::count(arguments, ',')) + 1;
}

template <class Visit>
void for_each_row(Visit visit) {
  for (const velmor::lexiva::Family& family : velmor::lexiva::families())
    for (const Command& row : family.commands) visit(row);
}

Obj string_list(std::initializer_list<const char*> texts) {
  const Obj list = NEW_PLIST(T_PLIST, 0);
  for (const char* text : texts) PushPlist(list, MakeImmString(text));
  return list;
}

}  // namespace

void declare_functions() {
  for_each_row([](const Command& row) {
    const std::string_view returns = row.returns;
    const std::size_t i = index_of(row);
    bindings[i] = {row.name, kEntryPoints[i].command, range_position(row.signature),
                   returns.starts_with("a sequence")};
    InitHandlerFunc(handler_of(row), row.entry_point);
  });
}

Obj new_functions() {
  const Obj functions = NEW_PREC(0);
  for_each_row([&](const Command& row) {
    const Obj function = NewFunctionC(row.name, -1, "arguments", handler_of(row));
    AssPRec(functions, RNamName(row.name), function);
  });
  for (const velmor::lexiva::Alias& alias : velmor::lexiva::aliases())
    AssPRec(functions, RNamName(alias.name), ElmPRec(functions, RNamName(alias.command)));
  return functions;
}

Obj new_rows() {
  const Obj rows = NEW_PLIST(T_PLIST, 0);
  for_each_row([&](const Command& row) {
    PushPlist(rows, string_list({row.name, row.signature, row.help, row.example, row.result,
                                 row.returns, row.notes}));
  });
  return rows;
}

const Binding* find_binding(std::string_view name) {
  const Command* const row = velmor::lexiva::find(name);
  return row == nullptr ? nullptr : &bindings[index_of(*row)];
}

}  // namespace vstring_gap
