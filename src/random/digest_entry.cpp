// Entry points: hash, digest.
#include "encoding/hexadecimal.h"
#include "host/args.h"
#include "host/result.h"
#include "random/digest.h"

using namespace vstring;

namespace {

struct Method {
  const char* name;
  const char* capitals;
  std::size_t size;  // of the digest
  void (*write_digits)(Bytes message, MutableBytes out);
};

template <auto compute>
constexpr Method method(const char* name, const char* capitals) {
  return {name, capitals, sizeof compute({}), [](Bytes message, MutableBytes out) {
            encoding::encode_hexadecimal(compute(message), out);
          }};
}

// The first one is taken where none is named.
constexpr Method kHashMethods[] = {method<random::md5>("md5", "MD5"),
                                   method<random::md4>("md4", "MD4")};
constexpr Method kDigestMethods[] = {
    method<random::sha256>("sha256", "SHA256"),
    method<random::sha1>("sha1", "SHA1"),
    method<random::sha512>("sha512", "SHA512"),
    method<random::crc32>("crc32", "CRC32"),
};

// From the option `method = name`, at this position if there is one.
const Method& decode_method(const Args& args, int position, std::span<const Method> methods) {
  if (!args.has(position)) return methods[0];
  const HostObject option = args.object(position);
  const bool is_method = is_equation(option) && is_text(left_side(option)) &&
                         equal(text_of(left_side(option)), "method");
  if (!is_method) args.raise(messages::kInvalidOption, option);
  const HostObject value = right_side(option);
  if (!is_text(value)) args.raise("method must be a string, but received %1", value);
  const Bytes name = text_of(value);
  for (const Method& method : methods) {
    if (equal(name, method.name) || equal(name, method.capitals)) return method;
  }
  args.raise("unrecognised method `%1'", value);
}

HostObject digits(const Args& args, const Method& method, Bytes message) {
  TextResult digits(args, 2 * method.size);
  method.write_digits(message, digits.bytes());
  return digits.object();
}

}  // namespace

constexpr Signature kHash = {1, {}, "arguments expected"};

HostObject vstring_hash(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kHash);
  const Method& method = decode_method(args, 2, kHashMethods);
  return digits(args, method, args.text(1));
}

HostObject vstring_digest(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes message = args.text(1);
  return digits(args, decode_method(args, 2, kDigestMethods), message);
}
