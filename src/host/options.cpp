// Host booleans and options: `name = value`, or a bare name.
#include <algorithm>

#include "host/object.h"
#include "host/raise.h"

namespace {

using vstring::Bytes;
using vstring::equal;
using vstring::text_of;

bool has_text(HostObject object, const char* text) {
  return vstring::is_text(object) && equal(text_of(object), text);
}

bool is_option(HostObject object, const char* name) {
  return vstring::is_equation(object) && has_text(vstring::left_side(object), name);
}

// 1, 0 or -1 for the host's truth values; 2 for anything else.
int truth_value(HostObject object) {
  if (!vstring::is_name(object)) return 2;
  const Bytes text = text_of(object);
  if (equal(text, "true")) return 1;
  if (equal(text, "false")) return 0;
  return equal(text, "FAIL") ? -1 : 2;
}

// The position behind `start`; no argument lies before the first one, or behind all of them.
int64_t first_after(int64_t start) { return std::clamp<int64_t>(start, 0, INT64_MAX - 1) + 1; }

// The first record with this name; with `bare_only`, among those that may be given bare.
VstringOption* find_option(VstringOption* options, HostObject name, bool bare_only) {
  if (!vstring::is_text(name)) return nullptr;
  const Bytes text = text_of(name);
  for (VstringOption* option = options; option->name != nullptr; ++option) {
    const bool eligible = !bare_only || (option->bare & 1) != 0;
    if (eligible && equal(text, option->name)) return option;
  }
  return nullptr;
}

}  // namespace

int VelmorToBoolean(const HostTable* host, HostObject object) {
  const int value = truth_value(object);
  if (value == 2) vstring::raise(host, "cannot convert to boolean: %1", object);
  return value;
}

int IsVelmorTrueFalse(const HostTable*, HostObject object) {
  const int value = truth_value(object);
  return value == 0 || value == 1 ? 1 : 0;
}

int IsVelmorBoolean(const HostTable*, HostObject object) {
  return truth_value(object) != 2 ? 1 : 0;
}

HostObject GetOption(const HostTable* host, int64_t start, HostObject argseq, const char* name,
                     int allow_bare) {
  const int64_t count = host->HostNumArgs(argseq);
  for (int64_t i = first_after(start); i <= count; ++i) {
    const HostObject argument = vstring::word_of(argseq, static_cast<std::size_t>(i));
    if (is_option(argument, name)) return vstring::right_side(argument);
    if (allow_bare != 0 && has_text(argument, name)) return host->HostToBoolean(1);
  }
  return 0;
}

int64_t GetOptions(const HostTable* host, VstringOption* options, int64_t start,
                   HostObject argseq) {
  bool any_bare = false;
  for (VstringOption* option = options; option->name != nullptr; ++option) {
    option->value = 0;
    option->position = 0;
    any_bare = any_bare || (option->bare & 1) != 0;
  }
  const int64_t count = host->HostNumArgs(argseq);
  for (int64_t i = first_after(start); i <= count; ++i) {
    const HostObject argument = vstring::word_of(argseq, static_cast<std::size_t>(i));
    VstringOption* option = nullptr;
    HostObject value = 0;
    if (vstring::is_equation(argument)) {
      option = find_option(options, vstring::left_side(argument), false);
      value = vstring::right_side(argument);
    } else if (any_bare) {
      option = find_option(options, argument, true);
      if (option != nullptr) value = host->HostToBoolean(1);
    }
    if (option == nullptr) continue;
    option->value = value;
    option->position = static_cast<uint32_t>(i);
  }
  int64_t found = 0;
  for (const VstringOption* option = options; option->name != nullptr; ++option) {
    if (option->position != 0) ++found;
  }
  return found;
}

const char* GetStringOption(const HostTable*, HostObject object, const char* name) {
  if (vstring::is_text(object)) return vstring::c_text_of(object);
  if (!is_option(object, name)) return nullptr;
  const HostObject value = vstring::right_side(object);
  return vstring::is_text(value) ? vstring::c_text_of(value) : nullptr;
}
