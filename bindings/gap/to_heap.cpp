// SPDX-License-Identifier: GPL-2.0-or-later
// What a command is given.
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "values.h"

namespace vstring_gap {
namespace {

HostObject made(HostObject object) {
  if (object == 0) throw std::bad_alloc();
  return object;
}

[[noreturn]] void refuse(Obj object) {
  throw std::runtime_error(std::string(TNAM_OBJ(object)) + " cannot be handed over");
}

// A list as GAP's kernel keeps it, with elements that are there.
bool is_kernel_list(Obj object) {
  return IS_PLIST(object) || IS_RANGE(object) || IS_BLIST_REP(object);
}

UInt length_of(Obj list) {
  if (IS_PLIST(list)) return static_cast<UInt>(LEN_PLIST(list));
  return static_cast<UInt>(IS_RANGE(list) ? GET_LEN_RANGE(list) : LEN_BLIST(list));
}

Obj element_of(Obj list, UInt i) {
  const Int at = static_cast<Int>(i);
  if (IS_RANGE(list)) return GET_ELM_RANGE(list, at);
  if (IS_BLIST_REP(list)) return ELM_BLIST(list, i);
  const Obj element = ELM_PLIST(list, at);
  if (element == 0) throw std::runtime_error("a list with holes cannot be handed over");
  return element;
}

// GAP takes a list of characters for a string, but not the empty list.
bool is_list_of_characters(Obj list) {
  if (!IS_PLIST(list) || LEN_PLIST(list) == 0) return false;
  for (Int i = 1; i <= LEN_PLIST(list); ++i) {
    const Obj element = ELM_PLIST(list, i);
    if (element == 0 || TNUM_OBJ(element) != T_CHAR) return false;
  }
  return true;
}

// [a, a + 1 .. b] in any representation: [5] and [5 .. 5] are equal in GAP, and one of them is no
// range to its kernel.
bool is_run_of_integers(Obj list) {
  if (IS_RANGE(list)) return GET_INC_RANGE(list) == 1;
  if (!IS_PLIST(list) || LEN_PLIST(list) == 0) return false;
  for (Int i = 1; i <= LEN_PLIST(list); ++i) {
    const Obj element = ELM_PLIST(list, i);
    if (element == 0 || !IS_INTOBJ(element)) return false;
    if (INT_INTOBJ(element) != INT_INTOBJ(ELM_PLIST(list, 1)) + i - 1) return false;
  }
  return true;
}

}  // namespace

HostObject ToHeap::arguments(Obj list, UInt range_position) {
  std::vector<HostObject> items;
  items.reserve(length_of(list));
  for (UInt i = 1; i <= length_of(list); ++i) {
    const Obj argument = element_of(list, i);
    if (i == range_position && is_run_of_integers(argument)) {
      const HostObject low = value(element_of(argument, 1));
      const HostObject high = value(element_of(argument, length_of(argument)));
      items.push_back(made(velmor_range(heap_, low, high)));
    } else {
      items.push_back(value(argument));
    }
  }
  return made(velmor_sequence(heap_, items.size(), items.data()));
}

HostObject ToHeap::value(Obj object, int depth) {
  if (IS_INTOBJ(object) || IS_LARGEINT(object)) return integer(object);
  if (IS_STRING_REP(object)) return text(CONST_CSTR_STRING(object), GET_LEN_STRING(object));
  if (TNUM_OBJ(object) == T_CHAR) {
    const UChar character = CHAR_VALUE(object);
    return text(&character, 1);
  }
  if (object == True || object == False || object == Fail)
    return made(velmor_name(heap_, object == True ? "true" : object == False ? "false" : "FAIL"));
  if (IS_MACFLOAT(object)) return made(velmor_float(heap_, VAL_MACFLOAT(object)));
  if (IS_FUNC(object)) return Procedures::wrap(heap_, object);
  if (depth > kDeepest) throw std::runtime_error("lists are nested too deeply");
  if (is_kernel_list(object) || IS_PREC(object)) {
    if (const auto known = known_.find(object); depth > 0 && known != known_.end())
      return known->second;
    const HostObject result = IS_PREC(object) ? equations(object, depth) : list(object, depth);
    if (depth > 0) known_.emplace(object, result);
    return result;
  }
  if (TNUM_OBJ(object) == T_COMOBJ) return component_object(object, depth);
  refuse(object);
}

HostObject ToHeap::integer(Obj object) {
  if (IS_INTOBJ(object)) return made(velmor_integer(heap_, INT_INTOBJ(object)));
  return made(velmor_integer_of_limbs(heap_, SIZE_INT(object), CONST_ADDR_INT(object),
                                      IS_NEG_INT(object) ? 1 : 0));
}

HostObject ToHeap::text(const void* bytes, std::size_t length) {
  if (std::memchr(bytes, 0, length) != nullptr)
    throw std::runtime_error("a string cannot hold a zero byte");
  return made(velmor_string_n(heap_, static_cast<const char*>(bytes), length));
}

HostObject ToHeap::list(Obj object, int depth) {
  const UInt n = length_of(object);
  if (is_list_of_characters(object)) {
    std::string characters;
    for (UInt i = 1; i <= n; ++i)
      characters += static_cast<char>(CHAR_VALUE(element_of(object, i)));
    return text(characters.data(), characters.size());
  }
  std::vector<HostObject> items;
  items.reserve(n);
  for (UInt i = 1; i <= n; ++i) items.push_back(value(element_of(object, i), depth + 1));
  return made(velmor_list(heap_, n, items.data()));
}

// A record of options: name = value for each component.
HostObject ToHeap::equations(Obj record, int depth) {
  std::vector<HostObject> items;
  for (UInt i = 1; i <= LEN_PREC(record); ++i) {
    const Int component = GET_RNAM_PREC(record, i);  // negative while the record is not sorted
    const Obj spelling = NAME_RNAM(static_cast<UInt>(std::abs(component)));
    const HostObject left = made(velmor_name(heap_, CONST_CSTR_STRING(spelling)));
    const HostObject right = value(GET_ELM_PREC(record, i), depth + 1);
    items.push_back(made(velmor_equation(heap_, left, right)));
  }
  return made(velmor_sequence(heap_, items.size(), items.data()));
}

HostObject ToHeap::component_object(Obj object, int depth) {
  const Obj type = TYPE_COMOBJ(object);
  const auto component = [&](UInt number) {
    UInt at = 0;
    if (FindPRec(object, number, &at, 0) == 0) throw std::runtime_error("a component is missing");
    return value(GET_ELM_PREC(object, at), depth + 1);
  };
  if (type == name.type) {
    const char* const text = velmor_text(component(name.first_component));
    if (text == nullptr) throw std::runtime_error("the text of a name must be a string");
    return made(velmor_name(heap_, text));
  }
  for (const Kind* kind : {&equation, &range}) {
    if (type != kind->type) continue;
    const HostObject first = component(kind->first_component);
    const HostObject second = component(kind->second_component);
    return made((kind == &range ? velmor_range : velmor_equation)(heap_, first, second));
  }
  refuse(object);
}

}  // namespace vstring_gap
