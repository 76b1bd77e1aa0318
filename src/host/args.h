// The arguments of one call: checked, decoded, and the place from which errors are raised.
//
// An entry point makes an Args first, decodes its arguments in order, calls one algorithm and
// builds the result (host/result.h). Every decoder may raise, and raising does not return, so
// nothing with a destructor may be alive in an entry point.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "host/messages.h"
#include "host/object.h"
#include "host/raise.h"
#include "host/vstring.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring {

// What an entry point says of one argument, where the ordinary words do not do.
struct ArgumentText {
  const char* wrong_kind = nullptr;  // null: the ordinary text for the position
  const char* bad_value = nullptr;   // of the right kind, but not acceptable
};

// An entry point's arity and vocabulary.
struct Signature {
  int required;
  ArgumentText arguments[messages::kPositions] = {};
  const char* too_few = nullptr;  // instead of "expecting ... arguments, but got ..."
};

// Of commands that have no words of their own.
inline constexpr Signature kOne = {1};
inline constexpr Signature kTwo = {2};
inline constexpr Signature kThree = {3};
// Of commands about a single text, whose refusal does not number it.
inline constexpr Signature kOneText = {1, {{messages::kArgumentString}}};

// A stretch of a text: 0-based offset of its first byte, and how many bytes it has.
struct Stretch {
  std::size_t first;
  std::size_t count;
};

// The longest text that a command makes where little can make much.
inline constexpr std::size_t kLongestMade = std::size_t{1} << 30;

// Whether a range one step backwards (a = b + 1) is empty wherever it lies, or must lie in the
// text.
enum class EmptyRange { in_text, anywhere };

class Args {
 public:
  // Raises when there are fewer arguments than the signature asks for. Inline, so that the frame is
  // the entry point's own.
  [[gnu::always_inline]] Args(const HostTable* host, HostObject argseq, const Signature& signature)
      : host_(host), argseq_(argseq), signature_(signature), count_(0) {
    if (memory::state.newest != nullptr || memory::state.scratch_holder != nullptr) [[unlikely]] {
      memory::let_go_of_abandoned(host, __builtin_dwarf_cfa());
    }
    count_ = host->HostNumArgs(argseq);
    if (count_ < signature.required) [[unlikely]]
      refuse_count();
  }

  const HostTable* host() const { return host_; }
  HostObject sequence() const { return argseq_; }
  std::int64_t count() const { return count_; }
  bool has(int position) const { return position <= count_; }

  // Argument `position` (1-based) as it came.
  HostObject object(int position) const {
    return word_of(argseq_, static_cast<std::size_t>(position));
  }

  // Each raises, in the signature's words, what it cannot decode.
  Bytes text(int position) const {
    const HostObject argument = object(position);
    if (!is_text(argument)) refuse_as(position, messages::kStringExpected);
    return text_of(argument);
  }
  std::int32_t integer32(int position) const {
    const HostObject argument = object(position);
    if (!is_integer32(argument)) refuse_as(position, messages::kInteger32Expected);
    return host_->HostToInteger32(argument);
  }
  std::int32_t non_negative(int position) const;  // a 32-bit integer of 0 or more
  std::int32_t positive(int position) const;      // a 32-bit integer of 1 or more
  Stretch range(int position, std::size_t text_length,
                EmptyRange empty = EmptyRange::in_text) const;
  // A list, or a set where these will do.
  Elements list(int position, bool sets_too = false) const;
  // The same, of strings and names only.
  Elements strings(int position, bool sets_too = false) const;
  // A word to choose from these, by its place among them. The refusal of another one shows it.
  std::size_t choice(int position, std::span<const char* const> words) const;
  // The same, of the values of an enumeration in their order; `otherwise` when there is no
  // argument.
  template <typename Enum>
  Enum choice(int position, std::span<const char* const> words, Enum otherwise) const {
    return has(position) ? static_cast<Enum>(choice(position, words)) : otherwise;
  }

  bool is_integer32(HostObject object) const { return host_->HostIsInteger32(object) != 0; }
  bool is_integer(HostObject object) const { return host_->HostIsInteger(object) != 0; }

  // Raised in the signature's words for argument `position`, whose value or whose kind is not
  // acceptable, or in those given here; with up to three objects for the placeholders.
  template <typename... Objects>
  [[noreturn]] void refuse(int position, Objects... objects) const {
    raise(words(position).bad_value, objects...);
  }
  template <typename... Objects>
  [[noreturn]] void refuse_kind(int position, Objects... objects) const {
    raise(words(position).wrong_kind, objects...);
  }
  template <typename... Objects>
  [[noreturn]] void raise(const char* message, Objects... objects) const {
    vstring::raise(host_, message, objects...);
  }
  // For texts that can be much longer than what they are made from.
  void limit_length(std::uint64_t length) const {
    if (length > kLongestMade) raise(messages::kResultTooLong);
  }
  // Of what an algorithm says, every command words only the want of memory alike: one that can say
  // more is asked before.
  [[noreturn]] void raise(Status status) const;
  void require(Status status) const {
    if (status != Status::ok) raise(status);
  }

 private:
  const ArgumentText& words(int position) const { return signature_.arguments[position - 1]; }
  [[noreturn]] void refuse_count() const;
  // In the ordinary words for the position, unless the signature has its own.
  [[noreturn]] void refuse_as(int position, const char* const* ordinary) const;
  [[noreturn]] void refuse_value_as(int position, const char* const* ordinary) const;

  const HostTable* host_;
  HostObject argseq_;
  const Signature& signature_;
  std::int64_t count_;
};

}  // namespace vstring
