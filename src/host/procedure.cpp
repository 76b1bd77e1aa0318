#include "host/procedure.h"

namespace vstring {
namespace {

// Whether a name has a meaning is the host's business, and so is all that it alone knows.
bool can_be_called(HostObject object) {
  switch (tag_of(object)) {
    case HOST_TAG_NEGATIVE:
    case HOST_TAG_NON_NEGATIVE:
    case HOST_TAG_STRING:
    case HOST_TAG_EQUATION:
    case HOST_TAG_LIST:
    case HOST_TAG_RANGE:
    case HOST_TAG_SET:
    case HOST_TAG_RTABLE:
      return false;
    default:
      return true;
  }
}

}  // namespace

Procedure::Procedure(const Args& args) : args_(args), procedure_(args.object(1)) {
  if (!can_be_called(procedure_)) args.raise("first argument must be a procedure");
}

HostObject Procedure::letter(Byte c) const {
  const Byte text[2] = {c, 0};
  return host()->HostNewString(chars(text));
}

HostObject Procedure::as_it_is(HostObject object) const {
  return is_immediate(object) || is_string(object) ? object : host()->HostQuote(object);
}

HostObject Procedure::fold_left(HostObject start, Bytes text) const {
  HostObject result = start;
  for (const Byte c : text) {
    const HostObject next = letter(c);
    result = call(as_it_is(result), next);
  }
  return result;
}

HostObject Procedure::fold_right(Bytes text, HostObject start) const {
  HostObject result = start;
  for (std::size_t i = text.size(); i-- > 0;) {
    const HostObject next = letter(text[i]);
    result = call(next, as_it_is(result));
  }
  return result;
}

Bytes Procedure::text(HostObject returned) const {
  if (!is_text(returned)) {
    args_.raise("procedure must return a string, but returned %1", returned);
  }
  return text_of(returned);
}

bool Procedure::truth(HostObject returned) const {
  if (is_name(returned)) {
    if (equal(text_of(returned), "true")) return true;
    if (equal(text_of(returned), "false")) return false;
  }
  args_.raise("procedure must return true or false, but returned %1", returned);
}

bool ProcedureKey::change_to(const Args& args, HostObject returned) {
  if (is_text(returned)) {
    const Bytes text = text_of(returned);
    if (kind_ == Kind::text && equal(text, text_.view())) return false;
    kind_ = Kind::text;
    text_.clear();
    if (!text_.append(text)) args.raise(Status::out_of_memory);
    return true;
  }
  if (!args.is_integer32(returned)) {
    args.raise("procedure must return a string or an integer, but returned %1", returned);
  }
  const std::int32_t integer = args.host()->HostToInteger32(returned);
  if (kind_ == Kind::integer && integer == integer_) return false;
  kind_ = Kind::integer;
  integer_ = integer;
  return true;
}

}  // namespace vstring
