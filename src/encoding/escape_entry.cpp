// Entry points: visible, escape, unescape, bytes, frombytes.
#include "encoding/escapes.h"
#include "encoding/visible.h"
#include "host/args.h"
#include "host/result.h"

using namespace vstring;

namespace {

HostObject in_pieces(const HostTable* host, HostObject argseq, const encoding::Pieces& pieces) {
  const Args args(host, argseq, kOneText);
  const Bytes text = args.text(1);
  TextResult result(args, pieces.length(text));
  return result.object_or_argument(args, 1, pieces.write(text, result.bytes()));
}

}  // namespace

HostObject vstring_visible(const HostTable* host, HostObject argseq) {
  return in_pieces(host, argseq, encoding::kVisible);
}

HostObject vstring_escape(const HostTable* host, HostObject argseq) {
  return in_pieces(host, argseq, encoding::kEscaped);
}

constexpr Signature kUnescape = {1, {{messages::kArgumentString, "invalid escape sequence `%1'"}}};

HostObject vstring_unescape(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kUnescape);
  const Bytes text = args.text(1);
  TextResult result(args, text.size());
  Bytes invalid;
  const Result<std::size_t> length = encoding::unescape(text, result.bytes(), invalid);
  if (length.ok()) return result.object_or_argument(args, 1, *length);
  if (invalid.empty()) args.raise(messages::kZeroByteDecoded);
  args.refuse(1, new_string(args, invalid));
}

HostObject vstring_bytes(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  Bytes text = args.text(1);
  if (args.has(2) && !text.empty()) {  // an empty text has whatever range is asked for
    const Stretch range = args.range(2, text.size());
    text = text.subspan(range.first, range.count);
  }
  return new_list(args, text.size(), [&](std::size_t i) { return new_integer(args, text[i]); });
}

constexpr Signature kFrombytes = {
    1, {{"argument must be a list of integers", "byte value %1 is not in 1 .. 255"}}};

// Reading an integer asks the host, which may use the scratch buffer meanwhile.
HostObject vstring_frombytes(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kFrombytes);
  const Elements codes = args.list(1);
  TextResult result(args, codes.size(), 0);
  for (std::size_t i = 0; i < codes.size(); ++i) {
    if (!args.is_integer32(codes[i])) args.refuse_kind(1);
    const std::int32_t code = host->HostToInteger32(codes[i]);
    if (code < 1 || code > 255) args.refuse(1, codes[i]);
    result.bytes()[i] = static_cast<Byte>(code);
  }
  return result.object();
}
