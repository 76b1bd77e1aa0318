// Entry points: wrap, fill.
#include <iterator>

#include "host/args.h"
#include "host/result.h"
#include "text/layout/fill.h"
#include "text/layout/wrap.h"

using namespace vstring;

namespace {

struct WrapOption {
  const char* name;
  bool text::WrapSettings::*setting;
  const char* not_boolean;
};

constexpr WrapOption kWrapOptions[] = {
    {"countbytes", &text::WrapSettings::count_bytes,
     "the `countbytes' value must be either `true' or `false', but received %1"},
    {"expandtabs", &text::WrapSettings::expand_tabs,
     "the `expandtabs' value must be either `true' or `false', but received %1"},
    {"obeylines", &text::WrapSettings::obey_lines,
     "the `obeylines' value must be either `true' or `false', but received %1"},
    {"obeyspaces", &text::WrapSettings::obey_spaces,
     "the `obeyspaces' value must be either `true' or `false', but received %1"},
};
constexpr int kBeforeWrapOptions = 2;  // the text and the width

void read_options(const Args& args, text::WrapSettings& settings) {
  VstringOption given[std::size(kWrapOptions) + 1] = {};
  for (std::size_t i = 0; i < std::size(kWrapOptions); ++i) given[i].name = kWrapOptions[i].name;
  GetOptions(args.host(), given, kBeforeWrapOptions, args.sequence());
  for (std::size_t i = 0; i < std::size(kWrapOptions); ++i) {
    if (given[i].position == 0) continue;
    const HostObject value = given[i].value;
    if (IsVelmorTrueFalse(args.host(), value) == 0) {
      args.raise(kWrapOptions[i].not_boolean, value);
    }
    settings.*kWrapOptions[i].setting = VelmorToBoolean(args.host(), value) == 1;
  }
}

}  // namespace

constexpr Signature kWrap = {
    1,
    {{}, {"second argument must be an integer", "second argument must be positive"}},
    "at least one argument expected"};

HostObject vstring_wrap(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kWrap);
  text::WrapSettings settings;
  read_options(args, settings);
  if (args.has(2)) settings.width = static_cast<std::uint32_t>(args.positive(2));
  const Bytes text = args.text(1);
  if (text.size() <= settings.width) return args.object(1);
  GrowingText lines = scratch_text();
  const Status status = text::wrap(text, settings, lines);
  if (status != Status::ok) lines.free();
  args.require(status);
  return new_string(args, lines);
}

constexpr Signature kFill = {2,
                             {{nullptr, "the first argument may not be the empty string"},
                              {nullptr, "second argument must be non-negative"}}};

HostObject vstring_fill(const HostTable* host, HostObject argseq) {
  const Args args(host, argseq, kFill);
  const Bytes text = args.text(1);
  const auto n = static_cast<std::size_t>(args.non_negative(2));
  if (text.empty()) args.refuse(1);
  TextResult result(args, n);
  text::Fill(text[0], result.bytes());
  return result.object();
}
