// Entry points: support, squeeze, delete, unaccent.
#include "bytes/byte_set.h"
#include "charclass/squeeze.h"
#include "charclass/support.h"
#include "charclass/unaccent.h"
#include "host/args.h"
#include "host/result.h"

using namespace vstring;

HostObject vstring_support(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const ByteSet letters(args.text(1));
  TextResult support(args, static_cast<std::size_t>(letters.count()));
  charclass::write_members(letters, support.bytes());
  return support.object_or_argument(args, 1);
}

HostObject vstring_squeeze(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  ByteSet squeezed;
  if (args.has(2)) {
    squeezed = ByteSet(args.text(2));
  } else {
    squeezed.complement();
  }
  TextResult result(args, text.size());
  return result.object_or_argument(args, 1, charclass::squeeze(text, squeezed, result.bytes()));
}

HostObject vstring_delete(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes text = args.text(1);
  const ByteSet deleted(args.text(2));
  TextResult result(args, text.size());
  return result.object_or_argument(args, 1, charclass::remove(text, deleted, result.bytes()));
}

constexpr const char* kCharsets[] = {"utf8", "latin1"};
constexpr Signature kUnaccent = {1, {{}, {nullptr, "unrecognised charset `%1'"}}};

HostObject vstring_unaccent(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kUnaccent);
  const Bytes text = args.text(1);
  const bool is_utf8 = !args.has(2) || args.choice(2, kCharsets) == 0;
  TextResult result(args, is_utf8 ? text.size() : 2 * text.size());
  const auto unaccent = is_utf8 ? charclass::unaccent_utf8 : charclass::unaccent_latin1;
  return result.object_or_argument(args, 1, unaccent(text, result.bytes()));
}
