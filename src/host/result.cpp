#include "host/result.h"

namespace vstring {

void TextResult::take_block(const Args& args) {
  if (length_ == SIZE_MAX || !block_.resize(length_ + 1)) args.raise(Status::out_of_memory);
  text_ = block_.data();
}

HostObject TextResult::copy_of_block() {
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
