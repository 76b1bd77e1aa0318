// Entry points: pad, trim, expand, unexpand, indent, dedent, lines.
#include "core/editing.h"
#include "host/args.h"
#include "host/result.h"
#include "text/layout/ends.h"
#include "text/layout/indentation.h"
#include "text/layout/lines.h"
#include "text/layout/tabs.h"

using namespace vstring;

namespace {

// In the order of text::Side.
constexpr const char* kSides[] = {"left", "right", "both"};

constexpr ArgumentText kSide = {nullptr, "unrecognised side `%1'"};
constexpr Signature kPad = {2, {{}, {}, kSide, {nullptr, "fourth argument must be a single byte"}}};
constexpr Signature kTrim = {1, {{}, {}, kSide}};
constexpr Signature kIndent = {2, {{}, {"second argument must be an integer or a string"}}};

constexpr std::size_t kTabStop = 8;

std::size_t tab_of(const Args& args) {
  return args.has(2) ? static_cast<std::size_t>(args.positive(2)) : kTabStop;
}

}  // namespace

HostObject vstring_pad(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kPad);
  const Bytes text = args.text(1);
  const auto width = static_cast<std::size_t>(args.non_negative(2));
  const text::Side side = args.choice(3, kSides, text::Side::right);
  const Bytes fill = args.has(4) ? args.text(4) : bytes_of(" ");
  if (fill.size() != 1) args.refuse(4);
  if (width <= text.size()) return args.object(1);
  return new_long_text(args, width,
                       [&](MutableBytes padded) { text::pad(text, side, fill[0], padded); });
}

HostObject vstring_trim(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kTrim);
  const Bytes text = args.text(1);
  const Bytes chars = args.has(2) ? args.text(2) : Bytes();
  const text::Side side = args.choice(3, kSides, text::Side::both);
  const Bytes trimmed =
      args.has(2) ? text::trim_chars(text, chars, side) : text::trim_space(text, side);
  return trimmed.size() == text.size() ? args.object(1) : new_string(args, trimmed);
}

HostObject vstring_expand(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  const std::size_t tab = tab_of(args);
  if (core::find_first(text, '\t') == npos) return args.object(1);
  return new_long_text(args, text::expanded_length(text, tab),
                       [&](MutableBytes expanded) { text::expand_tabs(text, tab, expanded); });
}

HostObject vstring_unexpand(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOne);
  const Bytes text = args.text(1);
  const std::size_t tab = tab_of(args);
  TextResult unexpanded(args, text.size());
  const std::size_t length = text::unexpand_tabs(text, tab, unexpanded.bytes());
  return unexpanded.object_or_argument(args, 1, length);
}

HostObject vstring_indent(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kIndent);
  const Bytes text = args.text(1);
  text::Margin margin = {};
  if (args.is_integer32(args.object(2))) {
    margin.blanks = static_cast<std::size_t>(args.non_negative(2));
  } else {
    margin.text = args.text(2);
  }
  const std::uint64_t length = text::indented_length(text, margin);
  if (length == text.size()) return args.object(1);
  return new_long_text(args, length,
                       [&](MutableBytes indented) { text::indent(text, margin, indented); });
}

HostObject vstring_dedent(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  const Bytes text = args.text(1);
  TextResult dedented(args, text.size());
  const std::size_t length = text::dedent(text, dedented.bytes());
  return dedented.object_or_argument(args, 1, length);
}

HostObject vstring_lines(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kOneText);
  HeldArray<Bytes> lines;
  args.require(text::split_lines(args.text(1), lines));
  return new_text_list(args, lines);
}
