#include "host/result.h"

namespace vstring {
namespace {

// The host's copy of a text in the scratch buffer. A command that the host calls before it has
// copied builds its result elsewhere; `holder` lies in the frame of this one.
HostObject copy_of_scratch(const HostTable* host, const void* holder) {
  memory::state.scratch_holder = holder;
  const HostObject string = host->HostNewString(chars(scratch));
  memory::state.scratch_holder = nullptr;
  return string;
}

}  // namespace

TextResult::TextResult(const Args& args, std::size_t length, std::size_t scratch_limit)
    : host_(args.host()), text_(scratch), length_(length) {
  if (length < scratch_limit && scratch_is_free()) return;
  if (length == SIZE_MAX || !block_.resize(length + 1)) args.raise(Status::out_of_memory);
  text_ = block_.data();
}

HostObject TextResult::object(std::size_t length) {
  text_[length] = '\0';
  if (block_.empty()) return copy_of_scratch(host_, this);
  const HostObject string = host_->HostNewString(chars(text_));
  block_.free();
  return string;
}

HostObject TextResult::object_or_argument(const Args& args, int position, std::size_t length) {
  if (!equal({text_, length}, args.text(position))) return object(length);
  block_.free();
  return args.object(position);
}

HostObject new_string(const Args& args, Bytes bytes) {
  TextResult result(args, bytes.size());
  copy_into(result.bytes(), bytes);
  return result.object();
}

HostObject new_string_aside(const Args& args, Bytes bytes) {
  Byte frame[SMALL_BUFFER_BASE_SIZE];
  GrowingText text(frame, sizeof frame);
  if (!text.append(bytes)) args.raise(Status::out_of_memory);
  return new_string(args, text);
}

HostObject new_string(const Args& args, GrowingText& text) {
  const char* const terminated = text.terminated();
  if (text.is_in(scratch)) return copy_of_scratch(args.host(), &text);
  const HostObject string = args.host()->HostNewString(terminated);
  text.free();
  return string;
}

HostObject new_text_list(const Args& args, HeldArray<Bytes>& texts) {
  const HostObject list =
      new_list(args, texts.size(), [&](std::size_t i) { return new_string(args, texts[i]); });
  texts.free();
  return list;
}

}  // namespace vstring
