// Entry point: fmtmsg.
#include <algorithm>
#include <cstdio>

#include "host/args.h"
#include "host/raise.h"
#include "host/result.h"
#include "runtime/memory.h"
#include "runtime/message_format.h"

using namespace vstring;

namespace {

// The message under construction, and what converts its arguments.
class Message {
 public:
  explicit Message(const Args& args)
      : args_(args),
        convert_(args.host()->HostNewName("convert", 1)),
        sprintf_(args.host()->HostNewName("sprintf", 1)),
        string_(args.host()->HostQuote(args.host()->HostNewName("string", 1))) {}

  void append(const FormatPiece& piece) {
    switch (piece.kind) {
      case FormatPiece::literal:
        return append(piece.text);
      case FormatPiece::argument:
        return append_converted(argument(piece.number));
      case FormatPiece::ordinal:
        return append_ordinal(piece.number);
      case FormatPiece::all_arguments:
        return append_all();
    }
  }

  HostObject finish() {
    if (!text_.push_back('\0')) fail(messages::kOutOfMemory);
    const HostObject string = args_.host()->HostNewString(chars(text_.data()));
    text_.free();
    return string;
  }

 private:
  [[noreturn]] void fail(const char* message) {
    text_.free();
    args_.raise(message);
  }

  void require(bool has_memory) {
    if (!has_memory) fail(messages::kOutOfMemory);
  }

  // Argument `number` after the format.
  HostObject argument(int number) {
    if (!args_.has(number + 1)) fail("too few parameters");
    return args_.object(number + 1);
  }

  void append(Bytes text) { require(text_.append(text)); }

  void append_ordinal(int number) {
    const HostObject value = argument(number);
    if (!args_.is_integer32(value)) {
      char message[80];
      std::snprintf(message, sizeof message,
                    "argument %d after the format string must be a small integer", number);
      fail(message);
    }
    require(vstring::append_ordinal(text_, args_.host()->HostToInteger32(value)));
  }

  void append_all() {
    for (std::int64_t i = 2; i <= args_.count(); ++i) {
      const HostObject value = args_.object(static_cast<int>(i));
      if (i > 2) append(bytes_of(", "));
      if (is_text(value)) {
        append(text_of(value));
      } else if (args_.is_integer32(value)) {
        require(append_integer(text_, args_.host()->HostToInteger32(value)));
      } else {
        append_converted(value);
      }
    }
  }

  void append_converted(HostObject value) {
    const HostTable* const host = args_.host();
    if (is_name(value) && has_own_spelling(value)) {
      value = evaluate(sprintf_, host->HostNewString("%a"), value);
      if (!is_text(value)) fail_assertion(__LINE__, "IsString(sprintf(\"%a\", name))");
    } else if (!is_text(value)) {
      value = evaluate(convert_, host->HostQuote(value), string_);
      if (!is_text(value)) fail_assertion(__LINE__, "IsString(convert(argument, string))");
    }
    append(text_of(value));
  }

  // Whether the host prints the name in a way of its own: it then keeps something in the word
  // before the text, other than the empty attribute.
  static bool has_own_spelling(HostObject name) {
    constexpr int kAttributeTag = 0x1e;
    const HostObject attribute = word_of(name, 2);
    if (attribute == 0) return false;
    if (is_immediate(attribute)) return true;
    return tag_of(attribute) != kAttributeTag || word_count(attribute) != 1;
  }

  // The host may call the library again meanwhile, and may collect what it does not see held: hence
  // the bracket around the blocks of this call, and the protection.
  HostObject evaluate(HostObject procedure, HostObject a, HostObject b) const {
    const HostTable* const host = args_.host();
    const HostObject names[] = {convert_, sprintf_, string_};
    for (const HostObject name : names) host->HostGcProtect(name);
    const memory::Evaluation outer = memory::begin_evaluation(__builtin_frame_address(0));
    const HostObject value = host->HostEvalProc(procedure, 2, a, b);
    memory::end_evaluation(outer);
    for (const HostObject name : names) host->HostGcAllow(name);
    return value;
  }

  [[noreturn]] void fail_assertion(int line, const char* condition) {
    text_.free();
    raise_assertion(args_.host(), line, condition);
  }

  const Args& args_;
  HostObject convert_;
  HostObject sprintf_;
  HostObject string_;
  HeldArray<Byte> text_;
};
static_assert(std::is_trivially_destructible_v<Message>);

constexpr Signature kFmtmsg = {1, {}, "no format string specified"};

}  // namespace

HostObject vstring_fmtmsg(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kFmtmsg);
  const Bytes format = args.text(1);
  if (std::find(format.begin(), format.end(), '%') == format.end()) {
    return is_string(args.object(1)) ? args.object(1) : new_string(args, format);
  }
  Message message(args);
  for (std::size_t at = 0; at < format.size();) message.append(next_piece(format, at));
  return message.finish();
}
