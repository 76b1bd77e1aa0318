#include "charclass/expand.h"

#include "bytes/byte_set.h"

namespace vstring::charclass {
namespace {

struct NamedClass {
  const char* name;
  const char* members;  // in the order listed; "a-z" is an inclusive range
};

// These are lists for people to read and to draw from, apart from the masks in the class table:
// ident1 does not offer "%", and the host may write to the masks.
constexpr NamedClass kNamed[] = {
    {"alpha", "A-Za-z"},       {"digit", "0-9"},         {"alnum", "A-Za-z0-9"},
    {"lower", "a-z"},          {"upper", "A-Z"},         {"space", " \t\n\r\f\v"},
    {"xdigit", "0-9A-Fa-f"},   {"odigit", "0-7"},        {"bdigit", "01"},
    {"binary", "01"},          {"dna", "ACGT"},          {"cntrl", "\1-\37\177"},
    {"ascii", "\1-\177"},      {"print", " -~"},         {"graph", "!-~"},
    {"punct", "!-/:-@[-`{-~"}, {"ident", "A-Za-z0-9_?"}, {"ident1", "A-Za-z_"},
    {"vowel", "AEIOUaeiou"},
};

// Whether `spec` stands between `open` and `close`, the latter not escaped.
bool is_enclosed(Bytes spec, Byte open, Byte close) {
  return spec.size() >= 2 && spec.front() == open && spec.back() == close &&
         spec[spec.size() - 2] != '\\';
}

Bytes inside(Bytes spec) { return spec.subspan(1, spec.size() - 2); }

bool is_range(Bytes rest) { return rest.size() >= 3 && rest[1] == '-'; }

Bytes expand_name(Bytes name, MutableBytes out) {
  std::size_t n = 0;
  for (const auto& [known, members] : kNamed) {
    if (!equal(name, known)) continue;
    for (Bytes rest = bytes_of(members); !rest.empty();) {
      const bool range = is_range(rest);
      for (int c = rest[0]; c <= rest[range ? 2 : 0]; ++c) out[n++] = static_cast<Byte>(c);
      rest = rest.subspan(range ? 3 : 1);
    }
  }
  return out.first(n);
}

// Marks the members of a list of items; false when a range is reversed.
bool mark_items(Bytes rest, ByteSet& marked) {
  while (!rest.empty()) {
    if (rest[0] == '\\' && rest.size() >= 2) {
      marked.add(rest[1]);
      rest = rest.subspan(2);
    } else if (is_range(rest)) {
      if (rest[2] < rest[0]) return false;
      for (int c = rest[0]; c <= rest[2]; ++c) marked.add(static_cast<Byte>(c));
      rest = rest.subspan(3);
    } else {
      marked.add(rest[0]);
      rest = rest.subspan(1);
    }
  }
  return true;
}

}  // namespace

Result<Bytes> ExpandClassSpec(Bytes spec, std::span<Byte, kMostMembers> members) {
  while (is_enclosed(spec, '[', ']')) spec = inside(spec);
  if (is_enclosed(spec, ':', ':')) return expand_name(inside(spec), members);

  const bool complemented = !spec.empty() && spec[0] == '^';
  ByteSet marked;
  if (!mark_items(spec.subspan(complemented ? 1 : 0), marked)) return Status::refused;
  std::size_t n = 0;
  for (int c = 1; c <= 255; ++c) {
    if (marked.has(static_cast<Byte>(c)) != complemented) members[n++] = static_cast<Byte>(c);
  }
  return Bytes(members.first(n));
}

}  // namespace vstring::charclass
