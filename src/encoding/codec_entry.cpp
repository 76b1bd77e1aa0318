// Entry points: encode, decode.
#include <cstring>

#include "encoding/base_digits.h"
#include "encoding/hexadecimal.h"
#include "encoding/marked.h"
#include "encoding/rot13.h"
#include "host/args.h"
#include "host/result.h"

using namespace vstring;

namespace {

struct Scheme {
  std::size_t (*room)(Bytes text);  // enough for encoding
  std::size_t (*encode)(Bytes text, MutableBytes out);
  Result<std::size_t> (*decode)(Bytes text, MutableBytes out);
};

std::size_t as_long(Bytes text) { return text.size(); }
std::size_t twice_as_long(Bytes text) { return 2 * text.size(); }

std::size_t copy(Bytes text, MutableBytes out) {
  copy_into(out, text);
  return text.size();
}

constexpr const char* kNames[] = {"null",   "hex",   "base64",  "base64url",
                                  "base32", "rot13", "percent", "quoted"};

// In the order of the names.
constexpr Scheme kSchemes[] = {
    {as_long, copy, [](Bytes text, MutableBytes out) { return Result(copy(text, out)); }},
    {twice_as_long, encoding::encode_hexadecimal, encoding::decode_hexadecimal},
    {encoding::base64_length, encoding::encode_base64, encoding::decode_base64},
    {encoding::base64_length, encoding::encode_base64url, encoding::decode_base64url},
    {encoding::base32_length, encoding::encode_base32, encoding::decode_base32},
    {as_long, encoding::rot13,
     [](Bytes text, MutableBytes out) { return Result(encoding::rot13(text, out)); }},
    {[](Bytes text) { return encoding::kPercent.length(text); },
     [](Bytes text, MutableBytes out) { return encoding::kPercent.write(text, out); },
     encoding::decode_percent},
    {encoding::quoted_room, encoding::encode_quoted, encoding::decode_quoted},
};

constexpr Signature kCodec = {2, {{}, {nullptr, "unrecognised scheme `%1'"}}};

}  // namespace

HostObject vstring_encode(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kCodec);
  const Bytes text = args.text(1);
  const Scheme& scheme = kSchemes[args.choice(2, kNames)];
  TextResult result(args, scheme.room(text));
  return result.object_or_argument(args, 1, scheme.encode(text, result.bytes()));
}

HostObject vstring_decode(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kCodec);
  const Bytes text = args.text(1);
  const Scheme& scheme = kSchemes[args.choice(2, kNames)];
  TextResult result(args, text.size());
  const Result<std::size_t> length = scheme.decode(text, result.bytes());
  if (!length.ok()) args.raise("invalid `%1' text", args.object(2));
  if (std::memchr(result.bytes().data(), 0, *length) != nullptr) {
    args.raise(messages::kZeroByteDecoded);
  }
  return result.object_or_argument(args, 1, *length);
}
