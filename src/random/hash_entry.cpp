// Entry point: hash.
#include "host/args.h"
#include "host/result.h"
#include "random/digest.h"

using namespace vstring;

namespace {

using Method = random::Digest (*)(Bytes);

// From the option `method = name`.
Method decode_method(const Args& args, HostObject option) {
  const bool is_method = is_equation(option) && is_text(left_side(option)) &&
                         equal(text_of(left_side(option)), "method");
  if (!is_method) args.raise(messages::kInvalidOption, option);
  const HostObject value = right_side(option);
  if (!is_text(value)) args.raise("method must be a string, but received %1", value);
  const Bytes name = text_of(value);
  if (equal(name, "md5") || equal(name, "MD5")) return random::md5;
  if (equal(name, "md4") || equal(name, "MD4")) return random::md4;
  args.raise("unrecognised method `%1'", value);
}

}  // namespace

constexpr Signature kHash = {1, {}, "arguments expected"};

HostObject vstring_hash(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kHash);
  const Method method = args.has(2) ? decode_method(args, args.object(2)) : random::md5;
  const random::Digest digest = method(args.text(1));
  TextResult digits(args, 2 * digest.size());
  random::write_hexadecimal(digest, digits.bytes());
  return digits.object();
}
