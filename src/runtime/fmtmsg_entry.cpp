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

// The names of the host's procedures that convert arguments. They are protected while the message
// is made; the call after an abandoned one lets them go.
struct Names : memory::Held {
  HostObject convert;
  HostObject sprintf;
  HostObject string;  // quoted
  int protected_count;

  void make(const HostTable* host) {
    convert = host->HostNewName("convert", 1);
    sprintf = host->HostNewName("sprintf", 1);
    string = host->HostQuote(host->HostNewName("string", 1));
    protected_count = 0;
  }

  void protect(const HostTable* host) {
    for (; protected_count < 3; ++protected_count) host->HostGcProtect(name(protected_count));
  }

  void allow(const HostTable* host) {
    while (protected_count > 0) host->HostGcAllow(name(--protected_count));
  }

 private:
  HostObject name(int i) const { return i == 0 ? convert : i == 1 ? sprintf : string; }
};

// What the outermost message stands on: most need no memory. One that is made while the host
// evaluates something for another takes blocks.
struct Outermost {
  bool is_in_use;
  Names names;
  Byte text[SMALL_BUFFER_BASE_SIZE];
};
constinit Outermost outermost = {};

void allow_names(memory::Held* held, const void* host) {
  Names names = *static_cast<Names*>(held);  // the next message may stand there from now on
  if (held == &outermost.names) outermost.is_in_use = false;
  names.allow(static_cast<const HostTable*>(host));
}

// The message under construction, and what converts its arguments.
class Message {
 public:
  explicit Message(const Args& args) : args_(args) {
    Names names;
    names.make(args.host());
    if (!outermost.is_in_use) {
      outermost.is_in_use = true;
      text_ = {outermost.text, sizeof outermost.text};
    } else if (block_.resize(1)) {
      names_ = block_.data();
    } else {
      args.raise(Status::out_of_memory);
    }
    *names_ = names;
    memory::hold(names_, this, allow_names);
    names_->protect(args.host());
  }

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
    const HostObject string = new_string(args_, text_);
    end();
    return string;
  }

 private:
  void end() {
    text_.free();
    memory::put_down(names_);
    allow_names(names_, args_.host());
    block_.free();
  }

  template <typename... Objects>
  [[noreturn]] void fail(const char* message, Objects... objects) {
    end();
    args_.raise(message, objects...);
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
      value = evaluate(names_->sprintf, host->HostNewString("%a"), value);
      if (!is_text(value)) fail_assertion(__LINE__, "IsString(sprintf(\"%a\", name))");
    } else if (!is_text(value)) {
      value = evaluate(names_->convert, host->HostQuote(value), names_->string);
      if (!is_text(value)) fail_assertion(__LINE__, "IsString(convert(argument, string))");
    }
    append(text_of(value));
  }

  // Whether the host prints the name in a way of its own: it then keeps an object in the word
  // before the text, other than the empty attribute.
  static bool has_own_spelling(HostObject name) {
    const HostObject attribute = word_of(name, 2);
    if (attribute == 0 || is_immediate(attribute)) return false;
    return tag_of(attribute) != HOST_TAG_SEQUENCE || word_count(attribute) != 1;
  }

  HostObject evaluate(HostObject procedure, HostObject a, HostObject b) const {
    return args_.host()->HostEvalProc(procedure, 2, a, b);
  }

  [[noreturn]] void fail_assertion(int line, const char* condition) {
    end();
    raise_assertion(args_.host(), line, condition);
  }

  const Args& args_;
  GrowingText text_;
  Names* names_ = &outermost.names;
  HeldArray<Names> block_;
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
