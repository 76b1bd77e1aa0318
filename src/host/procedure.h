// Procedures of the host, called over the letters of a text.
//
// A procedure may call any command, the one that waits for it too, and may raise: while it runs
// nothing lies in the scratch buffer or in a static place. Nor does its caller hold an object but
// arguments: a text is copied out of what a call returned, and what is handed on is an argument of
// the next call.
#pragma once
#include "host/args.h"
#include "host/result.h"

namespace vstring {

class Procedure {
 public:
  // The first argument: anything that the host may be able to call.
  explicit Procedure(const Args& args);

  HostObject of_integer(std::int64_t i) const { return call(host()->HostNewInteger(i)); }

  // Calls take(i, value) with the value of each letter text[i], from the left.
  template <typename Take>
  void for_each_letter(Bytes text, Take take) const {
    for (std::size_t i = 0; i < text.size(); ++i) take(i, call(letter(text[i])));
  }

  // p(... p(p(start, first letter), second letter) ..., last letter)
  HostObject fold_left(HostObject start, Bytes text) const;
  // p(first letter, p(second letter, ... p(last letter, start) ...))
  HostObject fold_right(Bytes text, HostObject start) const;

  // What a call returned, refused unless it is of the kind asked for.
  Bytes text(HostObject returned) const;
  bool truth(HostObject returned) const;

 private:
  const HostTable* host() const { return args_.host(); }
  HostObject call(HostObject x) const { return host()->HostEvalProc(procedure_, 1, x); }
  HostObject call(HostObject x, HostObject y) const {
    return host()->HostEvalProc(procedure_, 2, x, y);
  }
  HostObject letter(Byte c) const;
  // An object that came from the host, so that the call does not evaluate it again.
  HostObject as_it_is(HostObject object) const;

  const Args& args_;
  HostObject procedure_;
};

// What letters are grouped by: a copy of a text, or an integer.
class ProcedureKey {
 public:
  // Takes what a call returned; false when it equals the key before. The first one equals none.
  bool change_to(const Args& args, HostObject returned);
  void free() { text_.free(); }

 private:
  enum class Kind { none, text, integer };
  Kind kind_ = Kind::none;
  std::int32_t integer_ = 0;
  HeldArray<Byte> text_;
};

}  // namespace vstring
