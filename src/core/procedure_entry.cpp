// Entry points: map, filter, reject, foldl, foldr, groupby, tabulate.
#include "host/args.h"
#include "host/procedure.h"
#include "host/result.h"

using namespace vstring;

namespace {

// Texts that grow here do not begin in the scratch buffer, which the procedure's own commands use.
void append(const Args& args, GrowingText& made, Bytes bytes) {
  if (!made.append(bytes)) args.raise(Status::out_of_memory);
}

// The text that a value is, behind those before.
void append_value(const Args& args, const Procedure& procedure, GrowingText& made,
                  HostObject value) {
  const Bytes text = procedure.text(value);
  args.limit_length(made.size() + text.size());
  append(args, made, text);
}

HostObject letters_with(const Args& args, bool wanted) {
  const Procedure procedure(args);
  const Bytes text = args.text(2);
  GrowingText kept;
  procedure.for_each_letter(text, [&](std::size_t i, HostObject value) {
    if (procedure.truth(value) == wanted) append(args, kept, text.subspan(i, 1));
  });
  return new_string(args, kept);
}

}  // namespace

HostObject vstring_map(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Procedure procedure(args);
  GrowingText made;
  procedure.for_each_letter(args.text(2), [&](std::size_t, HostObject value) {
    append_value(args, procedure, made, value);
  });
  return new_string(args, made);
}

HostObject vstring_filter(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  return letters_with(args, true);
}

HostObject vstring_reject(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  return letters_with(args, false);
}

HostObject vstring_foldl(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const Procedure procedure(args);
  return procedure.fold_left(args.object(2), args.text(3));
}

HostObject vstring_foldr(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kThree);
  const Procedure procedure(args);
  return procedure.fold_right(args.text(3), args.object(2));
}

HostObject vstring_groupby(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Procedure procedure(args);
  const Bytes text = args.text(2);
  HeldArray<std::size_t> starts;  // of the groups
  ProcedureKey key;
  procedure.for_each_letter(text, [&](std::size_t i, HostObject value) {
    if (key.change_to(args, value) && !starts.push_back(i)) args.raise(Status::out_of_memory);
  });
  key.free();
  const HostObject list = new_list(args, starts.size(), [&](std::size_t i) {
    const std::size_t end = i + 1 < starts.size() ? starts[i + 1] : text.size();
    return new_string(args, text.subspan(starts[i], end - starts[i]));
  });
  starts.free();
  return list;
}

HostObject vstring_tabulate(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTwo);
  const Procedure procedure(args);
  const std::int32_t n = args.non_negative(2);
  GrowingText made;
  for (std::int64_t i = 1; i <= n; ++i) {
    append_value(args, procedure, made, procedure.of_integer(i));
  }
  return new_string(args, made);
}
