// Entry points: length, substr, take, drop, insert, repeat, reverse, rotate, shift, exchange,
// snarf, isprefix, issuffix, has, strchr, strrchr, ord, char, cap, numboccur, max, min.
#include <optional>
#include <utility>

#include "bytes/count_byte.h"
#include "bytes/reverse.h"
#include "core/editing.h"
#include "host/args.h"
#include "host/measure.h"
#include "host/result.h"

using namespace vstring;

HostObject vstring_length(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  return new_integer(args, args.text(1).size());
}

HostObject vstring_substr(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes text = args.text(1);
  if (text.empty()) return empty_string(args);
  const Stretch range = args.range(2, text.size(), EmptyRange::anywhere);
  if (range.count == text.size() && is_string(args.object(1))) return args.object(1);
  return new_string(args, text.subspan(range.first, range.count));
}

namespace {

// The prefix or suffix commands take a count or a set of bytes as second argument.
constexpr Signature kTake = {2,
                             {{},
                              {"second argument must be a positive integer or a string",
                               "second argument must be non-negative"}}};
constexpr Signature kDrop = {2,
                             {{},
                              {"second argument must be a positive integer or a string",
                               "second argument must be positive"}}};

constexpr const char* kSecondTooLarge = "second argument is too large";

std::optional<std::size_t> count_argument(const Args& args) {
  if (args.is_integer32(args.object(2))) return static_cast<std::size_t>(args.non_negative(2));
  if (args.is_integer(args.object(2))) args.raise(kSecondTooLarge);
  return std::nullopt;
}

}  // namespace

HostObject vstring_take(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTake);
  const Bytes text = args.text(1);
  const std::optional<std::size_t> n = count_argument(args);
  if (n > text.size()) return args.object(1);
  return new_string(args, text.first(n ? *n : core::prefix_without(text, args.text(2))));
}

HostObject vstring_drop(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kDrop);
  const Bytes text = args.text(1);
  const std::optional<std::size_t> n = count_argument(args);
  if (n > text.size()) return empty_string(args);
  return new_string(args, text.subspan(n ? *n : core::after_last_of(text, args.text(2))));
}

HostObject vstring_insert(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const Bytes text = args.text(1);
  args.integer32(2);
  const Bytes inserted = args.text(3);
  const auto length = static_cast<std::int64_t>(text.size());
  const auto at = static_cast<std::size_t>(GetStringIndex(host, length, args.object(2)));
  TextResult result(args, text.size() + inserted.size());
  copy_into(copy_into(copy_into(result.bytes(), text.first(at)), inserted), text.subspan(at));
  return result.object();
}

HostObject vstring_repeat(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes text = args.text(1);
  const auto n = static_cast<std::size_t>(args.non_negative(2));
  if (n == 1) return args.object(1);
  if (n == 0 || text.empty()) return empty_string(args);
  std::size_t length = 0;
  if (__builtin_mul_overflow(n, text.size(), &length)) args.raise(Status::out_of_memory);
  TextResult result(args, length);
  core::repeat(text, result.bytes());
  return result.object();
}

HostObject vstring_reverse(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  TextResult result(args, text.size());
  reverse_bytes(text, result.bytes());
  return result.object();
}

HostObject vstring_rotate(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes text = args.text(1);
  if (!args.is_integer32(args.object(2))) {
    args.raise("expecting argument %1 to be a 32-bit integer, but got %2", host->HostNewInteger(2),
               args.object(2));
  }
  const std::int32_t distance = args.integer32(2);
  if (distance == 0 || text.size() < 2) return args.object(1);
  TextResult result(args, text.size());
  core::rotate_right(text, distance, result.bytes());
  return result.object();
}

// A byte that becomes 0 ends the result: the host's texts are NUL-terminated.
HostObject vstring_shift(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes text = args.text(1);
  const std::int32_t amount = args.integer32(2);
  TextResult result(args, text.size());
  core::shift(text, amount, result.bytes());
  return result.object();
}

constexpr Signature kExchange = {3,
                                 {{},
                                  {nullptr, "second argument must be positive"},
                                  {nullptr, "third argument must be positive"}}};

HostObject vstring_exchange(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kExchange);
  const Bytes text = args.text(1);
  args.integer32(2);
  args.integer32(3);
  if (args.object(2) == args.object(3)) return args.object(1);
  const auto i = static_cast<std::size_t>(args.positive(2));
  const auto j = static_cast<std::size_t>(args.positive(3));
  if (text.empty()) return args.object(1);
  if (i > text.size()) args.raise(kSecondTooLarge);
  if (j > text.size()) args.raise("third argument is too large");
  if (text[i - 1] == text[j - 1]) return args.object(1);
  TextResult result(args, text.size());
  copy_into(result.bytes(), text);
  std::swap(result.bytes()[i - 1], result.bytes()[j - 1]);
  return result.object();
}

HostObject vstring_snarf(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes text = args.text(1);
  const Bytes wanted = args.text(2);
  const CharTest test = CharClassNameToTest(c_text_of(args.object(2)));
  const std::size_t n =
      test != nullptr ? core::prefix_of(text, test) : core::prefix_of(text, wanted);
  return new_string(args, text.first(n));
}

HostObject vstring_isprefix(const HostTable* host, HostObject argseq) {
  return measured<core::is_prefix>(host, argseq);
}

HostObject vstring_issuffix(const HostTable* host, HostObject argseq) {
  return measured<core::is_suffix>(host, argseq);
}

// The wording is what scripts compare with; it means that the argument may not be empty.
constexpr Signature kHas = {2, {{nullptr, "first argument must be be the empty string"}}};

HostObject vstring_has(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kHas);
  const Bytes wanted = args.text(1);
  const Bytes text = args.text(2);
  if (wanted.empty()) args.refuse(1);
  return new_boolean(args, core::find_first(text, wanted[0]) != npos);
}

// An empty first argument stands for the terminator, which every text has at its end.
HostObject vstring_strchr(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes wanted = args.text(1);
  const Bytes text = args.text(2);
  return new_position(args, wanted.empty() ? text.size() : core::find_first(text, wanted[0]));
}

HostObject vstring_strrchr(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes wanted = args.text(1);
  const Bytes text = args.text(2);
  return new_position(args, wanted.empty() ? text.size() : core::find_last(text, wanted[0]));
}

HostObject vstring_ord(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  return new_integer(args, text.empty() ? 0 : text[0]);
}

constexpr Signature kChar = {1, {{messages::kArgumentInteger32, "integer argument is too large"}}};

HostObject vstring_char(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kChar);
  const HostObject code = args.object(1);
  if (!args.is_integer32(code) && args.is_integer(code)) args.refuse(1);
  const std::int32_t n = args.integer32(1);
  if (n < 0 || n > 255) args.refuse(1);
  const auto byte = static_cast<Byte>(n);
  return new_string(args, {&byte, 1});
}

HostObject vstring_cap(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const Bytes text = args.text(1);
  const Bytes left = args.text(2);
  const Bytes right = args.text(3);
  TextResult result(args, left.size() + text.size() + right.size());
  copy_into(copy_into(copy_into(result.bytes(), left), text), right);
  return result.object();
}

HostObject vstring_numboccur(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Bytes text = args.text(1);
  const Bytes wanted = args.text(2);
  return new_integer(args, wanted.empty() ? 0 : count_byte(text, wanted[0]));
}

// The extremes of a text shorter than two bytes are those of no byte at all: the lowest byte for
// max, the highest for min, so that either can start a comparison.
HostObject vstring_max(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes text = args.text(1);
  const Byte extreme = text.size() < 2 ? Byte{1} : core::largest(text);
  return new_string(args, {&extreme, 1});
}

HostObject vstring_min(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes text = args.text(1);
  const Byte extreme = text.size() < 2 ? Byte{255} : core::smallest(text);
  return new_string(args, {&extreme, 1});
}
