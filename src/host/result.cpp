#include "host/result.h"

#include "runtime/scratch.h"

namespace vstring {

TextResult::TextResult(const Args& args, std::size_t length)
    : host_(args.host()), text_(reinterpret_cast<Byte*>(smbuf)), length_(length) {
  if (length < kScratchLimit) return;
  if (length == SIZE_MAX || !block_.resize(length + 1)) args.raise(Status::out_of_memory);
  text_ = block_.data();
}

HostObject TextResult::object(std::size_t length) {
  text_[length] = '\0';
  const HostObject string = host_->HostNewString(chars(text_));
  block_.free();
  return string;
}

HostObject new_string(const Args& args, Bytes bytes) {
  TextResult result(args, bytes.size());
  copy_into(result.bytes(), bytes);
  return result.object();
}

}  // namespace vstring
