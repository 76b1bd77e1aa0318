// Entry points: isCLASS(s [, range]) and hasCLASS(s [, range]) for the eighteen classes.
#include "charclass/predicates.h"
#include "host/args.h"
#include "host/result.h"

using namespace vstring;
using charclass::Class;

namespace {

constexpr Byte kLastAscii = 127;

// What a predicate looks at.
struct Examined {
  Bytes bytes;
  Byte highest;    // code that may belong to a class
  bool unclassed;  // no byte counts as belonging to a class
};

// Of a range, only the first byte of the whole text is asked whether it is ASCII: scripts test that
// byte to tell encoded texts from plain ones.
Examined examined(const Args& args) {
  const Bytes text = args.text(1);
  if (!args.has(2)) return {text, kLastAscii, false};
  const Stretch range = args.range(2, text.size());
  const bool unclassed = !text.empty() && text[0] > kLastAscii;
  return {text.subspan(range.first, range.count), 255, unclassed};
}

HostObject is_in_class(const HostTable* host, HostObject argseq, Class wanted) {
  const Args args(host, argseq, kOneText);
  const auto [bytes, highest, unclassed] = examined(args);
  const bool none = unclassed && !bytes.empty();
  return new_boolean(args, !none && charclass::all_in(bytes, wanted, highest));
}

HostObject has_class(const HostTable* host, HostObject argseq, Class wanted) {
  const Args args(host, argseq, kOneText);
  const auto [bytes, highest, unclassed] = examined(args);
  return new_boolean(args, !unclassed && charclass::any_in(bytes, wanted, highest));
}

}  // namespace

#define CLASS_PREDICATES(name, wanted)                                     \
  HostObject vstring_is##name(const HostTable* host, HostObject argseq) {  \
    return is_in_class(host, argseq, wanted);                              \
  }                                                                        \
  HostObject vstring_has##name(const HostTable* host, HostObject argseq) { \
    return has_class(host, argseq, wanted);                                \
  }

// clang-format off
CLASS_PREDICATES(lower,        charclass::kLower)
CLASS_PREDICATES(upper,        charclass::kUpper)
CLASS_PREDICATES(alpha,        charclass::kAlpha)
CLASS_PREDICATES(digit,        charclass::kDigit)
CLASS_PREDICATES(bdigit,       charclass::kBinaryDigit)
CLASS_PREDICATES(odigit,       charclass::kOctalDigit)
CLASS_PREDICATES(xdigit,       charclass::kHexDigit)
CLASS_PREDICATES(alphaNumeric, charclass::kAlnum)
CLASS_PREDICATES(graph,        charclass::kGraph)
CLASS_PREDICATES(print,        charclass::kPrint)
CLASS_PREDICATES(punct,        charclass::kPunct)
CLASS_PREDICATES(cntrl,        charclass::kControl)
CLASS_PREDICATES(vowel,        charclass::kVowel)
CLASS_PREDICATES(ident,        charclass::kIdent)
CLASS_PREDICATES(ident1,       charclass::kIdent1)
CLASS_PREDICATES(dna,          charclass::kDna)
CLASS_PREDICATES(space,        charclass::kSpace)
CLASS_PREDICATES(ascii,        charclass::kAscii)
// clang-format on
#undef CLASS_PREDICATES
