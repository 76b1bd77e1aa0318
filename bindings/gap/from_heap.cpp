// SPDX-License-Identifier: GPL-2.0-or-later
// What a command gives back, or hands to a procedure.
#include <bit>
#include <stdexcept>
#include <string_view>

#include "heap/object.h"
#include "values.h"

namespace vstring_gap {
namespace {

Obj new_list(UInt length) {
  if (length == 0) return NewEmptyPlist();
  const Obj list = NEW_PLIST(T_PLIST, static_cast<Int>(length));
  SET_LEN_PLIST(list, static_cast<Int>(length));  // of holes, for now
  return list;
}

void set_element(Obj list, UInt i, Obj element) {
  SET_ELM_PLIST(list, static_cast<Int>(i), element);
  CHANGED_BAG(list);
}

Obj new_component_object(const Kind& kind, Obj first, Obj second) {
  const Obj object = NEW_PREC(2);
  AssPRec(object, kind.first_component, first);
  if (second != 0) AssPRec(object, kind.second_component, second);
  SortPRecRNam(object, 0);
  RetypeBag(object, T_COMOBJ);
  SET_TYPE_COMOBJ(object, kind.type);
  CHANGED_BAG(object);
  return object;
}

Obj string_of(HostObject text) {
  return MakeStringWithLen(velmor_text(text), velmor_text_length(text));
}

bool is_empty_sequence(HostObject object) {
  return velmor_tag(object) == HOST_TAG_SEQUENCE && velmor_size(object) == 0;
}

}  // namespace

Obj FromHeap::value(HostObject object) { return is_empty_sequence(object) ? 0 : value(object, 0); }

Obj FromHeap::items(HostObject object) {
  const bool is_empty_list = velmor_tag(object) == HOST_TAG_LIST && velmor_size(object) == 0;
  if (is_empty_list || velmor_tag(object) == HOST_TAG_SEQUENCE) return list(object, 0);
  const Obj only = value(object, 1);
  const Obj result = new_list(1);
  set_element(result, 1, only);
  return result;
}

Obj FromHeap::value(HostObject object, int depth) {
  if (depth > kDeepest) throw std::runtime_error("lists are nested too deeply");
  switch (velmor_tag(object)) {
    case HOST_TAG_NEGATIVE:
    case HOST_TAG_NON_NEGATIVE:
      return integer(object);
    case velmor::kTagFloat:
      return NEW_MACFLOAT(std::bit_cast<double>(velmor::words(object)[1]));
    case HOST_TAG_STRING:
      return string_of(object);
    case HOST_TAG_NAME: {
      const std::string_view text = velmor_text(object);
      if (text == "true") return True;
      if (text == "false") return False;
      if (text == "FAIL") return Fail;
      return new_component_object(name, string_of(object), 0);
    }
    case velmor::kTagProcedure:
      return Procedures::unwrap(object);
    case HOST_TAG_LIST:
    case HOST_TAG_SET:
    case HOST_TAG_SEQUENCE:
      if (const auto known = known_.find(object); known != known_.end()) return known->second;
      return list(object, depth);
    case HOST_TAG_RANGE:
    case HOST_TAG_EQUATION: {
      const Obj first = value(velmor::words(object)[1], depth + 1);
      const Obj second = value(velmor::words(object)[2], depth + 1);
      return new_component_object(velmor_tag(object) == HOST_TAG_RANGE ? range : equation, first,
                                  second);
    }
    default:
      throw std::runtime_error("GAP has nothing for a value of this kind");
  }
}

Obj FromHeap::integer(HostObject object) {
  if (velmor::is_immediate(object)) return ObjInt_Int8(velmor::immediate_value(object));
  const int limbs = static_cast<int>(velmor::length_in_words(object) - 1);
  return MakeObjInt(velmor::words(object) + 1,
                    velmor_tag(object) == HOST_TAG_NEGATIVE ? -limbs : limbs);
}

// The list is where the collector finds its elements; what `known_` holds is part of one that is
// on the stack.
Obj FromHeap::list(HostObject object, int depth) {
  const std::size_t n = velmor_size(object);
  const Obj result = new_list(n);
  if (depth > 0) known_.emplace(object, result);
  for (std::size_t i = 1; i <= n; ++i)
    set_element(result, i, value(velmor_element(object, i), depth + 1));
  return result;
}

}  // namespace vstring_gap
